#pragma once

#include <chrono>
#include <cstdint>

#include "archive/base/Progress.h"
#include "cli/Messages.h"

namespace pellumar {

// Shows how far a job is, how fast it goes and how long it will take, as the status of `messages`.
// Takes it away when it goes, which is after the job.
class ProgressLine {
  public:
    explicit ProgressLine(Messages& messages);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    // How many bytes there will be, of a job that does not tell.
    void expect(std::uint64_t bytes) { expected_ = bytes; }
    // To be given to the job; empty if nobody would see the status.
    [[nodiscard]] archive::ProgressHandler handler();
    // One call at a time.
    void show(const archive::Progress& progress);

  private:
    using Clock = std::chrono::steady_clock;

    // Of the last seconds, in bytes a second.
    double rate(std::uint64_t bytesDone, Clock::time_point now);

    Messages& messages_;
    std::uint64_t expected_ = 0;
    Clock::time_point shown_;
    Clock::time_point measured_;
    std::uint64_t bytesMeasured_ = 0;
    double rate_ = 0;
};

}  // namespace pellumar
