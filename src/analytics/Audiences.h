#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "analytics/AnalyticsStore.h"
#include "analytics/Consent.h"

namespace pellumar {

// An event has happened so often: ever, or on the last days with today as the first, 1 to 60.
struct EventHappened {
    QString event;
    qint64 atLeast = 1;
    std::optional<int> lastDays = std::nullopt;
};

// Users who have something in common. Being in it shows as the user property "pz_in_" and the name,
// with the value "1".
struct Audience {
    // At most 18 letters, digits and underscores.
    QString name;
    // All of them hold. None: everybody.
    std::vector<EventHappened> conditions;
    // Advertising is made for it, so it needs the consent to that.
    bool forAdvertising = false;
};

// The user came in or left.
struct AudienceChange {
    QString audience;
    bool member = false;
};

// Holds all conditions against the store, keeps who is in which audience, and tells what has
// changed; audiences that are declared no more are left. Nothing if it could not be kept.
[[nodiscard]] std::vector<AudienceChange> followAudiences(const std::vector<Audience>& declared,
                                                          AnalyticsStore& store,
                                                          const Consent& consent,
                                                          qint64 today);

}  // namespace pellumar
