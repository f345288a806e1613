#pragma once

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

#include "archive/base/File.h"

namespace pellumar {

// As long as it lives, the first signal that asks the program to end (interrupt, hang-up,
// termination) asks the work to stop instead; the second ends the program at once. Signals that the
// caller has the program ignore stay ignored.
//
// To be made before the work's threads are, as it keeps these signals from the thread that makes it
// and from those that come after.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] std::stop_token token() const { return work_.get_token(); }
    // Asks the work to stop, as if this signal had come. The first of several is the one that
    // counts.
    void interrupt(int signal);
    // What the program returns for work that was stopped.
    [[nodiscard]] int exitCode() const;

  private:
    void watch();

    sigset_t signals_{};
    sigset_t maskBefore_{};
    archive::File arrivals_;  // of the signals; not open where there is no watching
    archive::File wake_;      // ends the watch
    std::atomic<int> signal_ = 0;
    std::stop_source work_;
    std::thread watcher_;
};

}  // namespace pellumar
