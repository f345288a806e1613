#pragma once

#include <functional>

namespace pellumar {

// Asks the user, in the application, whether to go and rate it. For the main thread.
class ReviewPrompt {
  public:
    using Answered = std::function<void(bool wantsToRate)>;

    virtual ~ReviewPrompt() = default;

    // Returns at once. `answered` is called at most once; never if the question is standing
    // already, or goes without an answer.
    virtual void ask(Answered answered) = 0;
};

}  // namespace pellumar
