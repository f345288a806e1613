#include "archive/writing/CompressionThreads.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

#include "archive/base/WithinMemory.h"
#include "archive/format/EntryPath.h"
#include "archive/writing/ChunkCompressor.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kChunkSize = ChunkCompressor::kChunkSize;

// What one thread has.
class Worker {
  public:
    Worker(CompressionQueue& queue, OutputBuffers& buffers, const FileIdentity& archive)
        : queue_(queue), archive_(archive), compressor_(buffers) {}

    // Ends when the queue is stopped.
    [[nodiscard]] Result<> work() {
        while (auto task = queue_.takeTask()) {
            const auto opened = [&] { return withinMemory([&] { return open(*task->source); }); };
            if (task->file != nullptr || queue_.reportOpened(*task, opened())) {
                queue_.reportChunk(*task, withinMemory([&] { return compress(*task); }));
            }
        }
        return {};
    }

  private:
    [[nodiscard]] Result<SourceFile> open(const CompressionQueue::Source& source) const {
        if (!portableName(source.name)) {
            return failure(ErrorCode::kInvalidArgument);
        }
        if (source.file.empty()) {
            return SourceFile::ofMemory(source.memoryType, source.memory);
        }
        return source.linkAsLink ? SourceFile::openLink(source.file, archive_)
                                 : SourceFile::open(source.file, archive_);
    }

    [[nodiscard]] Result<CompressedChunk> compress(const CompressionQueue::Task& task) {
        const std::uint64_t start = task.chunk * kChunkSize;
        const std::uint64_t left = task.file->size() - start;
        if (!input_) {
            input_.reset(new std::uint8_t[DeflateCompressor::kWindow + kChunkSize]);
        }
        const bool stored = task.source->isStored(task.file->status());
        const std::size_t window = stored ? 0 : DeflateCompressor::windowBefore(task.chunk);
        const MutableBytes before(input_.get(), window);
        if (window > 0) {
            if (auto read = task.file->read(start - window, before, task.source->readSize); !read) {
                return tl::unexpected(read.error());
            }
        }
        const MutableBytes content(
            input_.get() + window,
            static_cast<std::size_t>(std::min<std::uint64_t>(left, kChunkSize)));
        const auto crc = task.file->read(start, content, task.source->readSize);
        if (!crc) {
            return tl::unexpected(crc.error());
        }
        return compressor_.compress({.content = content,
                                     .window = window,
                                     .crc32 = *crc,
                                     .first = task.chunk == 0,
                                     .last = left <= kChunkSize,
                                     .stored = stored},
                                    task.source->options);
    }

    CompressionQueue& queue_;
    const FileIdentity archive_;
    ChunkCompressor compressor_;
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
            threads_.emplace_back([&queue, &buffers, archive] {
                const auto work = [&] { return Worker(queue, buffers, archive).work(); };
                if (const Result<> done = withinMemory(work); !done) {
                    queue.fail(done.error());
                }
            });
        }
    } catch (const std::exception&) {
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
