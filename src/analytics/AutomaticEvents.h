#pragma once

#include <vector>

#include "analytics/CrashReport.h"
#include "analytics/Event.h"
#include "analytics/ProductVersions.h"
#include "analytics/StateTable.h"

namespace pellumar {

// The events that nobody logs, and when they are due.
class AutomaticEvents {
  public:
    // Those of a start: the first one, one with another version of the application or of the system
    // than the last time. Within a transaction; keeps what it needs for the next start.
    [[nodiscard]] static std::vector<Event> atStart(StateTable& state,
                                                    const ProductVersions& versions);
    // A store that follows another one is not the first.
    static void skipFirstOpen(StateTable& state);

    [[nodiscard]] static Event sessionStart(qint64 number);
    [[nodiscard]] static Event engagement(qint64 milliseconds);
    [[nodiscard]] static Event crash(const CrashReport& report);
};

}  // namespace pellumar
