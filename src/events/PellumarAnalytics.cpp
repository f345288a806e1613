#include "events/PellumarAnalytics.h"

#include "events/EventNames.h"

namespace pellumar {

void PellumarAnalytics::logEvent(const QString& name,
                                 const std::optional<QVariantMap>& parameters) const {
    if (settings_.userDefaults().boolForKey(settings_.sendUsageDataKey())) {
        engine_.logEventWithName(name, parameters);
    }
}

void PellumarAnalytics::logEvaluatedApp(qint64 rating) const {
    logEvent(event::kEvaluatedApp, QVariantMap{{event::kRating, rating}});
}

}  // namespace pellumar
