#pragma once

#include <functional>

namespace pellumar {

// A queue that runs pieces of work some time after they were given to it.
class DispatchQueue {
  public:
    virtual ~DispatchQueue() = default;

    // Takes the work and returns at once, from any thread. The work is run once, and what it
    // captured is released on the thread that ran it.
    virtual void async(std::function<void()> work) = 0;
};

}  // namespace pellumar
