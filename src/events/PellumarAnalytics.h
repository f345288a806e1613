#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>

#include "platform/FIRAnalytics.h"
#include "settings/UserSettings.h"

namespace pellumar {

// The one way in which usage events are reported, and the rule that they are sent only while the
// user allows it. The flag is read at every event, so a change counts from the next one on; an
// event that it stops is gone for good. All operations may be called from any thread.
class PellumarAnalytics {
  public:
    // Both must outlive this.
    PellumarAnalytics(const UserSettings& settings, FIRAnalytics& engine)
        : settings_(settings), engine_(engine) {}

    // `name` is one of EventNames.h.
    void logEvent(const QString& name,
                  const std::optional<QVariantMap>& parameters = std::nullopt) const;

    // kEvaluatedApp with the number of stars.
    void logEvaluatedApp(qint64 rating) const;

  private:
    const UserSettings& settings_;
    FIRAnalytics& engine_;
};

}  // namespace pellumar
