#pragma once

#include <QSocketNotifier>
#include <optional>

namespace pellumar {

// While this exists, what asks the process to end (SIGTERM, SIGINT, SIGHUP) ends the event loop, so
// that the program ends as if its window were closed. The second of a kind ends the process at
// once, should it hang. What was ignored stays so.
//
// At most one at a time; for the main thread. A QCoreApplication must exist.
class TerminationSignals {
  public:
    TerminationSignals();
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

  private:
    std::optional<QSocketNotifier> notifier_;
};

}  // namespace pellumar
