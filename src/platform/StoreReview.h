#pragma once

namespace pellumar {

// Asks the user for a rating in the store. Whether anything is shown is the system's decision, and
// nobody learns of it. For the main thread.
class StoreReview {
  public:
    virtual ~StoreReview() = default;

    virtual void requestReview() = 0;
};

}  // namespace pellumar
