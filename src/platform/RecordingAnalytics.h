#pragma once

#include <QList>
#include <QMap>
#include <mutex>

#include "platform/FIRAnalytics.h"

namespace pellumar {

// Keeps in memory what it is told, and sends nothing: for a program without a measurement engine,
// and for tests.
class RecordingAnalytics : public FIRAnalytics {
  public:
    // The latest events are kept, and no more than these.
    static constexpr qsizetype kMostKept = 1000;

    struct Event {
        QString name;
        std::optional<QVariantMap> parameters;

        friend bool operator==(const Event&, const Event&) = default;
    };

    void logEventWithName(const QString& name,
                          const std::optional<QVariantMap>& parameters) override;
    void setUserPropertyString(const QString& value, const QString& forName) override;

    [[nodiscard]] QList<Event> events() const;
    [[nodiscard]] QMap<QString, QString> userProperties() const;

  private:
    mutable std::mutex mutex_;
    QList<Event> events_;
    QMap<QString, QString> userProperties_;
};

}  // namespace pellumar
