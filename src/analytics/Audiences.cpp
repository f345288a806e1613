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
    const QVariantMap before = store.memory().audiences;
    QVariantMap after;
    for (const Audience& audience : environment.audiences) {
        if (consent.mayMeasure() && (!audience.forAdvertising || consent.mayAdvertise()) &&
            holds(audience, store, today)) {
            after.insert(audience.name, audience.forAdvertising);
        }
    }
    if (before == after) {
        return;
    }
    Change change{.memory = store.memory()};
    change.memory.audiences = after;
    if (store.write(change) != DatabaseOutcome::kDone || !environment.audienceChanged) {
        return;
    }
    const auto tell = [&](const QVariantMap& those, const QVariantMap& others, bool member) {
        for (auto each = those.keyBegin(); each != those.keyEnd(); ++each) {
            if (!others.contains(*each)) {
                environment.audienceChanged(*each, member);
            }
        }
    };
    tell(after, before, true);
    tell(before, after, false);
}

}  // namespace pellumar
