#include "archive/writing/ArchiveOutput.h"

#include <algorithm>
#include <utility>

namespace pellumar::archive {

namespace {

constexpr std::size_t kBufferSize = 256UL * 1024;

}  // namespace

ArchiveOutput::ArchiveOutput(PendingFile file) : file_(std::move(file)) {
    buffer_.reserve(kBufferSize);
}

ArchiveOutput::ArchiveOutput(std::unique_ptr<ByteOutput> output) : output_(std::move(output)) {
    buffer_.reserve(kBufferSize);
}

Result<> ArchiveOutput::append(ByteView bytes) {
    if (failed_) {
        return failure(ErrorCode::kWriteFailed);
    }
    if (buffer_.size() + bytes.size() > kBufferSize) {
        if (auto flushed = flush(); !flushed) {
            return flushed;
        }
    }
    if (bytes.size() < kBufferSize) {
        buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
        return {};
    }
    return write(bytes);
}

Result<> ArchiveOutput::overwrite(std::uint64_t position, ByteView bytes) {
    // One append lies whole in the file or whole in the buffer.
    if (position < written_) {
        return file_->file().writeAt(position, bytes);
    }
    const auto start = static_cast<std::ptrdiff_t>(position - written_);
    std::copy(bytes.begin(), bytes.end(), buffer_.begin() + start);
    return {};
}

void ArchiveOutput::rewind(std::uint64_t position) {
    if (position >= written_) {
        buffer_.resize(static_cast<std::size_t>(position - written_));
    } else {
        buffer_.clear();
        failed_ = !file_;
        written_ = position;
    }
    if (!file_) {
        return;
    }
    // Cut now, the room can be used by others; if that fails, close() has to do it. A write that
    // failed halfway leaves something to be cut as well.
    static_cast<void>(file_->file().truncate(written_));
    rewound_ = true;
}

Result<> ArchiveOutput::close() {
    if (failed_) {
        return failure(ErrorCode::kWriteFailed);
    }
    if (auto flushed = flush(); !flushed) {
        return flushed;
    }
    if (!file_) {
        return output_->close();
    }
    if (rewound_) {
        if (auto cut = file_->file().truncate(written_); !cut) {
            return cut;
        }
    }
    return file_->commit();
}

Result<> ArchiveOutput::flush() {
    auto result = write(buffer_);
    if (result) {
        buffer_.clear();
    }
    return result;
}

Result<> ArchiveOutput::write(ByteView bytes) {
    auto result = file_ ? file_->file().writeAt(written_, bytes) : output_->write(bytes);
    if (result) {
        written_ += bytes.size();
    } else {
        failed_ = !file_;
    }
    return result;
}

}  // namespace pellumar::archive
