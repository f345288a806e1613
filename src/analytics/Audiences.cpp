#include "analytics/Audiences.h"

#include <algorithm>

#include "analytics/AnalyticsEnvironment.h"

namespace pellumar {
namespace {

bool holds(const Audience& audience, AnalyticsStore& store, qint64 today) {
    return std::all_of(audience.conditions.begin(),
                       audience.conditions.end(),
                       [&](const EventHappened& condition) {
                           const auto from = condition.lastDays
                                                 ? std::optional(today - *condition.lastDays + 1)
                                                 : std::nullopt;
                           return store.times(condition.event, from) >= condition.atLeast;
                       });
}

}  // namespace

void followAudiences(const AnalyticsEnvironment& environment,
                     AnalyticsStore& store,
                     const Consent& consent) {
    const qint64 today = localDay(environment.now().wall);
    Change change{.memory = store.memory()};
    change.memory.audiences.clear();
    for (const Audience& audience : environment.audiences) {
        if (consent.mayMeasure() && (!audience.forAdvertising || consent.mayAdvertise()) &&
            holds(audience, store, today)) {
            change.memory.audiences.insert(audience.name, audience.forAdvertising);
        }
    }
    if (change.memory != store.memory()) {
        // What cannot be written now is found out again with the next event.
        static_cast<void>(store.write(change));
    }
}

}  // namespace pellumar
