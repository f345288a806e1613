#pragma once

#include <QThreadPool>

#include "platform/DispatchQueue.h"

namespace pellumar {

// A concurrent queue for work that the user waits for: as many pieces at once as there are
// processors, and never fewer than two, so that one long job does not hold up the next. Going
// away, it waits for all that it was given.
class GlobalDispatchQueue : public DispatchQueue {
  public:
    GlobalDispatchQueue();
    ~GlobalDispatchQueue() override;
    GlobalDispatchQueue(const GlobalDispatchQueue&) = delete;
    GlobalDispatchQueue& operator=(const GlobalDispatchQueue&) = delete;

    void async(std::function<void()> work) override;

  private:
    QThreadPool threads_;
};

}  // namespace pellumar
