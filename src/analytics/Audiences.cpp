#include "analytics/Audiences.h"

#include <algorithm>
#include <map>

namespace pellumar {
namespace {

using Properties = std::map<QString, UserProperty>;

struct Holds {
    AnalyticsStore& store;
    const Properties& properties;
    qint64 today;

    bool operator()(const EventHappened& condition) const {
        const auto from =
            condition.lastDays ? std::optional(today - *condition.lastDays + 1) : std::nullopt;
        return store.times(condition.event, from) >= condition.atLeast;
    }
    bool operator()(const PropertyIs& condition) const {
        const auto found = properties.find(condition.name);
        return (found == properties.end() ? QString() : found->second.value) == condition.value;
    }
};

bool isMember(const Audience& audience, const Holds& holds) {
    return std::all_of(audience.conditions.begin(),
                       audience.conditions.end(),
                       [&](const AudienceCondition& condition) {
                           return std::visit(holds, condition.what) != condition.negated;
                       });
}

}  // namespace

std::vector<AudienceChange> followAudiences(const std::vector<Audience>& declared,
                                            AnalyticsStore& store,
                                            const Consent& consent,
                                            qint64 today) {
    Properties properties;
    Properties left;
    for (const UserProperty& property : store.properties()) {
        properties.emplace(property.name, property);
        if (property.name.startsWith(kAudiencePrefix)) {
            left.emplace(property.name, property);
        }
    }
    std::vector<AudienceChange> changes;
    Change change{.memory = store.memory()};
    for (const Audience& audience : declared) {
        const QString name = kAudiencePrefix + audience.name;
        const auto before = left.extract(name);
        const bool isAllowed =
            consent.mayMeasure() && (!audience.forAdvertising || consent.mayAdvertise());
        const bool member = isAllowed && isMember(audience, Holds{store, properties, today});
        // Of a member, what the audience is for may have become another thing.
        if (member == before.empty() ||
            (member && before.mapped().advertising != audience.forAdvertising)) {
            const UserProperty property{.name = name,
                                        .value = member ? QStringLiteral("1") : QString(),
                                        .advertising = audience.forAdvertising};
            properties[name] = property;
            change.properties.push_back(property);
        }
        if (member == before.empty()) {
            changes.push_back({.audience = audience.name, .member = member});
        }
    }
    for (const auto& [name, property] : left) {
        changes.push_back({.audience = name.sliced(kAudiencePrefix.size()), .member = false});
        change.properties.push_back({.name = name, .value = {}});
    }
    if (!change.properties.empty() && store.write(change) != DatabaseOutcome::kDone) {
        changes.clear();
    }
    return changes;
}

}  // namespace pellumar
