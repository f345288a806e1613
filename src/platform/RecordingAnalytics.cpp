#include "platform/RecordingAnalytics.h"

namespace pellumar {

void RecordingAnalytics::logEventWithName(const QString& name,
                                          const std::optional<QVariantMap>& parameters) {
    const std::lock_guard lock(mutex_);
    if (events_.size() == kMostKept) {
        events_.removeFirst();
    }
    events_.append({.name = name, .parameters = parameters});
}

void RecordingAnalytics::setUserPropertyString(const QString& value, const QString& forName) {
    const std::lock_guard lock(mutex_);
    userProperties_.insert(forName, value);
}

QList<RecordingAnalytics::Event> RecordingAnalytics::events() const {
    const std::lock_guard lock(mutex_);
    return events_;
}

QMap<QString, QString> RecordingAnalytics::userProperties() const {
    const std::lock_guard lock(mutex_);
    return userProperties_;
}

}  // namespace pellumar
