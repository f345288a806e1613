#pragma once

#include <memory>

#include "archive/base/Error.h"
#include "engine/PasswordRequest.h"
#include "platform/DispatchQueue.h"

namespace pellumar {

// A job that cannot go on without a password.
class LockedJob {
  public:
    LockedJob() = default;
    LockedJob(const LockedJob&) = delete;
    LockedJob& operator=(const LockedJob&) = delete;
    virtual ~LockedJob() = default;

    // In the background, while nothing else of the job runs.
    [[nodiscard]] virtual bool fits(const archive::Password& password) = 0;

    // On the main queue, one of the two, once:
    virtual void goOn(PasswordRequest::Password password) = 0;
    virtual void endWithout(bool wasWrong) = 0;
};

// The question for the password of `job`, whose queues are given; it holds the job until it is
// answered. `wasWrong` tells that the job has met a password that is not the right one.
[[nodiscard]] std::shared_ptr<PasswordRequest> requestFor(std::shared_ptr<LockedJob> job,
                                                          bool wasWrong,
                                                          DispatchQueue& mainQueue,
                                                          DispatchQueue& backgroundQueue);

}  // namespace pellumar
