#include "analytics/Audiences.h"

#include <algorithm>
#include <set>

#include "analytics/EventNaming.h"

namespace pellumar {
namespace {

struct Holds {
    AnalyticsStore& store;
    qint64 today;

    bool operator()(const EventHappened& condition) const {
        const qint64 times =
            condition.lastDays
                ? store.counts().between(condition.event, today - *condition.lastDays + 1, today)
                : store.counts().total(condition.event);
        return times >= condition.atLeast;
    }
    bool operator()(const PropertyIs& condition) const {
        return store.userProperties().value(condition.name) == condition.value;
    }
};

bool isMember(const Audience& audience, const Holds& holds) {
    return std::all_of(audience.conditions.begin(),
                       audience.conditions.end(),
                       [&](const AudienceCondition& condition) {
                           return std::visit(holds, condition.what) != condition.negated;
                       });
}

void keep(AnalyticsStore& store, const Audiences::Change& change, bool advertising, qint64 time) {
    if (change.member) {
        store.memberships().add(change.audience, time);
    } else {
        store.memberships().remove(change.audience);
    }
    // There is always room for one that begins with the prefix.
    static_cast<void>(
        store.userProperties().set({.name = kAudiencePrefix + change.audience,
                                    .value = change.member ? QStringLiteral("1") : QString(),
                                    .time = time,
                                    .advertising = advertising}));
}

}  // namespace

std::vector<Audiences::Change> Audiences::evaluate(AnalyticsStore& store,
                                                   const Consent& consent,
                                                   qint64 time,
                                                   qint64 today) const {
    std::vector<Change> changes;
    std::set<QString> left = store.memberships().all();
    for (const Audience& audience : declared_) {
        const bool wasMember = left.erase(audience.name) > 0;
        const bool allowed = !audience.forAdvertising || consent.allowsAdvertisingAudiences();
        const bool member = allowed && isMember(audience, Holds{store, today});
        const Change change{.audience = audience.name, .member = member};
        if (member != wasMember) {
            changes.push_back(change);
        }
        // Of a member, what the audience is for may have become another thing.
        if (member || wasMember) {
            keep(store, change, audience.forAdvertising, time);
        }
    }
    for (const QString& audience : left) {
        changes.push_back({.audience = audience, .member = false});
        keep(store, changes.back(), false, time);
    }
    return changes;
}

}  // namespace pellumar
