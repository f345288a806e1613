#pragma once

#include "archive/base/DataSink.h"
#include "archive/base/Entry.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/ProgressTeller.h"

namespace pellumar::archive {

// Hands an entry's data on to another sink, counts it, and ends where the caller wants it to end.
class WatchedSink final : public DataSink {
  public:
    // All of them outlive the sink.
    WatchedSink(DataSink& target,
                const Entry& entry,
                const ExtractionOptions& options,
                ProgressTeller& progress)
        : target_(target), entry_(entry), options_(options), progress_(progress) {}

    [[nodiscard]] MutableBytes room() override { return target_.room(); }
    // Over the declared size the limit cannot have been held against it.
    [[nodiscard]] Result<> expectMore(std::uint64_t bytes) override {
        return options_.limits.bytes == ExtractionLimits::kNone ? target_.expectMore(bytes)
                                                                : failure(ErrorCode::kOverLimit);
    }
    [[nodiscard]] Result<> write(ByteView bytes) override {
        return isStopped() ? failure(ErrorCode::kCancelled) : count(bytes, target_.write(bytes));
    }
    [[nodiscard]] Result<> writeVerified(ByteView bytes) override {
        return isStopped() ? failure(ErrorCode::kCancelled)
                           : count(bytes, target_.writeVerified(bytes));
    }

  private:
    [[nodiscard]] bool isStopped() const { return options_.stop.stop_requested(); }
    [[nodiscard]] Result<> count(ByteView bytes, Result<> written) {
        progress_.addBytes(bytes.size(), entry_.path);
        return written;
    }

    DataSink& target_;
    const Entry& entry_;
    const ExtractionOptions& options_;
    ProgressTeller& progress_;
};

}  // namespace pellumar::archive
