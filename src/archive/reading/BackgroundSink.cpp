#include "archive/reading/BackgroundSink.h"

#include <algorithm>
#include <exception>

#include "archive/base/WithinMemory.h"

namespace pellumar::archive {

BackgroundSink::BackgroundSink(DataSink& target)
    : target_(target), pieces_(std::make_unique_for_overwrite<std::array<Piece, kPieces>>()) {
    try {
        thread_ = std::thread([this] { work(); });
    } catch (const std::exception&) {
        stopping_ = true;
    }
}

BackgroundSink::~BackgroundSink() {
    stop();
}

MutableBytes BackgroundSink::room() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return filled_ - written_ < kPieces || error_; });
    return (*pieces_)[filled_ % kPieces];
}

Result<> BackgroundSink::write(ByteView bytes) {
    if (!thread_.joinable()) {
        return target_.write(bytes);
    }
    // What was unpacked elsewhere is brought here.
    while (!bytes.empty()) {
        const MutableBytes piece = room();
        const ByteView part = bytes.first(std::min(bytes.size(), piece.size()));
        if (part.data() != piece.data()) {
            std::copy(part.begin(), part.end(), piece.begin());
        }
        if (auto passed = handOver(part.size()); !passed) {
            return passed;
        }
        bytes = bytes.subspan(part.size());
    }
    return {};
}

Result<> BackgroundSink::handOver(std::size_t size) {
    const std::lock_guard lock(mutex_);
    sizes_[filled_ % kPieces] = size;
    ++filled_;
    changed_.notify_all();
    return errorSoFar();
}

Result<> BackgroundSink::finish() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return filled_ == written_ || error_ || stopping_; });
    }
    stop();
    return errorSoFar();
}

void BackgroundSink::stop() {
    if (thread_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            stopping_ = true;
            changed_.notify_all();
        }
        thread_.join();
    }
}

void BackgroundSink::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return filled_ > written_ || stopping_; });
        if (stopping_) {
            return;
        }
        const std::size_t place = written_ % kPieces;
        const ByteView bytes = ByteView((*pieces_)[place]).first(sizes_[place]);
        lock.unlock();
        auto passed = withinMemory([&] { return target_.write(bytes); });
        lock.lock();
        if (!passed) {
            error_ = std::move(passed.error());
            changed_.notify_all();
            return;
        }
        ++written_;
        changed_.notify_all();
    }
}

Result<> BackgroundSink::errorSoFar() const {
    return error_ ? Result<>(Failure(*error_)) : Result<>();
}

}  // namespace pellumar::archive
