#pragma once

#include <linux/limits.h>

#include <string>
#include <utility>

#include "archive/base/DataSink.h"

namespace pellumar::archive {

// Collects a link's target, which no file system takes longer than PATH_MAX.
class TargetSink final : public DataSink {
  public:
    Result<> write(ByteView bytes) override {
        if (target_.size() + bytes.size() >= PATH_MAX) {
            return failure(ErrorCode::kUnsafeLink);
        }
        target_.append(asText(bytes));
        return {};
    }

    std::string take() { return std::move(target_); }

  private:
    std::string target_;
};

}  // namespace pellumar::archive
