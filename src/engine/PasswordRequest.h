#pragma once

#include <functional>
#include <memory>

#include "archive/base/Password.h"

namespace pellumar {

// An extraction that waits for the password of its archive, before anything is written. It goes on
// once a password fits; given up, or let go of by all who hold it, it ends as a failed one. For the
// main thread.
class PasswordRequest {
  public:
    using Password = std::shared_ptr<const archive::Password>;

    PasswordRequest() = default;
    PasswordRequest(const PasswordRequest&) = delete;
    PasswordRequest& operator=(const PasswordRequest&) = delete;
    virtual ~PasswordRequest() = default;

    // A password was taken for the archive's by its check bytes, and is not, or not of all in it.
    [[nodiscard]] virtual bool wasWrong() const = 0;

    // Tries the password in the background. `reply` tells on the main thread whether it fits; if it
    // does, the extraction has gone on, and what is called here afterwards does nothing. One try at
    // a time: another is not begun before the reply.
    virtual void tryPassword(Password password, std::function<void(bool fits)> reply) = 0;

    virtual void giveUp() = 0;
};

// Called on the main thread with each extraction that needs a password.
using PasswordQuestion = std::function<void(std::shared_ptr<PasswordRequest>)>;

}  // namespace pellumar
