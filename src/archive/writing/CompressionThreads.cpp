#include "archive/writing/CompressionThreads.h"

#include <algorithm>
#include <memory>
#include <system_error>
#include <utility>

#include "archive/base/WithinMemory.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/EntryPath.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kChunkSize = DeflateCompressor::kChunkSize;

// Larger results are handed over in the buffer they are in; many small ones would waste it.
constexpr std::size_t kLargestCopied = 64UL * 1024;

// What one thread has.
class Worker {
  public:
    Worker(CompressionQueue& queue, OutputBuffers& buffers, const FileIdentity& archive)
        : queue_(queue), buffers_(buffers), archive_(archive) {}

    // Ends when the queue is stopped, or says that it could not go on.
    void run() {
        const Result<> done = withinMemory([this] { return work(); });
        if (!done) {
            queue_.fail(done.error());
        }
    }

  private:
    [[nodiscard]] Result<> work() {
        while (auto task = queue_.takeTask()) {
            const auto opened = [&] { return withinMemory([&] { return open(*task->source); }); };
            if (task->file != nullptr || queue_.reportOpened(*task, opened())) {
                queue_.reportChunk(*task, withinMemory([&] { return compress(*task); }));
            }
        }
        return {};
    }

    [[nodiscard]] Result<SourceFile> open(const CompressionQueue::Source& source) const {
        if (!portableName(source.name)) {
            return failure(ErrorCode::kInvalidArgument);
        }
        return SourceFile::open(source.file, archive_);
    }

    [[nodiscard]] Result<CompressedChunk> compress(const CompressionQueue::Task& task) {
        const std::uint64_t start = task.chunk * kChunkSize;
        const std::uint64_t left = task.file->size() - start;
        if (!input_) {
            input_.reset(new std::uint8_t[kChunkSize]);
        }
        const MutableBytes content(
            input_.get(), static_cast<std::size_t>(std::min<std::uint64_t>(left, kChunkSize)));
        const auto crc = task.file->read(start, content, task.readSize);
        if (!crc) {
            return tl::unexpected(crc.error());
        }
        if (!output_) {
            output_ = buffers_.take();
        }
        CompressedChunk chunk;
        if (task.chunk == 0 && task.source->options.password) {
            auto encryptor =
                makeEncryptor(task.source->options.encryption, *task.source->options.password);
            if (!encryptor) {
                return passOn(encryptor);
            }
            chunk.encryptor = std::move(*encryptor);
        }
        chunk.size = compressor_.compress(
            content, left <= kChunkSize, MutableBytes(output_.get(), buffers_.size()));
        chunk.uncompressedSize = content.size();
        chunk.crc32 = *crc;
        if (chunk.size > kLargestCopied) {
            chunk.buffer = std::move(output_);
        } else {
            chunk.small.assign(output_.get(), output_.get() + chunk.size);
        }
        return chunk;
    }

    CompressionQueue& queue_;
    OutputBuffers& buffers_;
    const FileIdentity archive_;
    DeflateCompressor compressor_;
    OutputBuffers::Buffer output_;
    // Not zeroed, so that small files touch little of it.
    std::unique_ptr<std::uint8_t[]> input_;
};

}  // namespace

CompressionThreads::~CompressionThreads() {
    stop();
}

Result<> CompressionThreads::start(unsigned count,
                                   CompressionQueue& queue,
                                   OutputBuffers& buffers,
                                   const FileIdentity& archive) {
    queue_ = &queue;
    threads_.reserve(count);
    try {
        for (unsigned i = 0; i < count; ++i) {
            threads_.emplace_back(
                [&queue, &buffers, archive] { Worker(queue, buffers, archive).run(); });
        }
    } catch (const std::system_error&) {
        if (threads_.empty()) {
            return failure(ErrorCode::kOutOfMemory);
        }
    }
    return {};
}

void CompressionThreads::stop() {
    if (queue_ != nullptr) {
        queue_->stop();
    }
    for (std::thread& thread : threads_) {
        thread.join();
    }
    threads_.clear();
}

}  // namespace pellumar::archive
