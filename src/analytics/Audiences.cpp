#include "analytics/Audiences.h"

#include <algorithm>
#include <map>

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

std::vector<AudienceChange> followAudiences(const std::vector<Audience>& declared,
                                            AnalyticsStore& store,
                                            const Consent& consent,
                                            qint64 today) {
    // Which of them the user was in, and whether for advertising.
    std::map<QString, bool> left;
    const Memory& memory = store.memory();
    for (const bool advertising : {false, true}) {
        for (const QString& name : (advertising ? memory.advertising : memory.properties).keys()) {
            if (name.startsWith(kAudiencePrefix)) {
                left.emplace(name.sliced(kAudiencePrefix.size()), advertising);
            }
        }
    }
    std::vector<AudienceChange> changes;
    Change change{.memory = store.memory()};
    const auto keep = [&](const QString& name, bool member, bool advertising) {
        change.memory.set({.name = kAudiencePrefix + name,
                           .value = member ? QStringLiteral("1") : QString(),
                           .advertising = advertising});
    };
    for (const Audience& audience : declared) {
        const bool isAllowed =
            consent.mayMeasure() && (!audience.forAdvertising || consent.mayAdvertise());
        const auto before = left.find(audience.name);
        if (!isAllowed || !holds(audience, store, today)) {
            // Left with those that are not declared any more.
            continue;
        }
        if (before == left.end()) {
            changes.push_back({.audience = audience.name, .member = true});
        }
        // Of a member, what the audience is for may have become another thing.
        if (before == left.end() || before->second != audience.forAdvertising) {
            keep(audience.name, true, audience.forAdvertising);
        }
        left.erase(audience.name);
    }
    for (const auto& [name, advertising] : left) {
        changes.push_back({.audience = name, .member = false});
        keep(name, false, advertising);
    }
    if (change.memory != store.memory() && store.write(change) != DatabaseOutcome::kDone) {
        changes.clear();
    }
    return changes;
}

}  // namespace pellumar
