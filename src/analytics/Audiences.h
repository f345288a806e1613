#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace pellumar {

struct AnalyticsEnvironment;
class AnalyticsStore;
class Consent;

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

// Holds all conditions against the store, and keeps in which audiences the user is.
void followAudiences(const AnalyticsEnvironment& environment,
                     AnalyticsStore& store,
                     const Consent& consent);

}  // namespace pellumar
