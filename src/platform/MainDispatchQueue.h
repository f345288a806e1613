#pragma once

#include <QObject>

#include "platform/DispatchQueue.h"

namespace pellumar {

// The main queue: runs its work one piece after the other, in the order it was given, from the
// event loop of the thread that made the queue. Work that is still waiting when the queue goes is
// released without having been run.
class MainDispatchQueue : public DispatchQueue {
  public:
    void async(std::function<void()> work) override;

  private:
    class Receiver : public QObject {
      public:
        bool event(QEvent* event) override;
    };

    Receiver receiver_;
};

}  // namespace pellumar
