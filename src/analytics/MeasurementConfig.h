#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <functional>

namespace pellumar {

// The value of a remote parameter; an empty text if there is none. May be called from any thread.
using MeasurementParameters = std::function<QString(const QString& key)>;

// How is measured, as somebody decides from afar. Whatever is missing or cannot be read is as it
// stands here; what is out of range is at its end.
struct MeasurementConfig {
    static constexpr int kAll = 1000;

    // Of a thousand events, how many are kept to be sent: of all that the application logs, and of
    // some by name, automatic ones as well.
    // "measurement_sampling": a number; "measurement_event_sampling": "name=number,name=number".
    int samplingPermille = kAll;
    QMap<QString, int> eventSamplingPermille;
    // Neither kept nor counted. "measurement_blocked_events": "name,name".
    QSet<QString> blockedEvents;
    // A batch is sent when so many events wait, 1 to 1000. "measurement_batch_events".
    int batchEvents = 100;
    // Or when so much time has passed since the last one, a minute to a day.
    // "measurement_interval_seconds".
    int intervalSeconds = 15 * 60;
    // How long an event waits to be sent, 1 to 60. "measurement_retention_days".
    int retentionDays = 30;
    // How long an installation is known by the same identifier, 1 to 365.
    // "measurement_identifier_days".
    int identifierDays = 90;

    [[nodiscard]] static MeasurementConfig read(const MeasurementParameters& parameters);

    // Between 0 and kAll.
    [[nodiscard]] int samplingOf(const QString& event) const;
};

}  // namespace pellumar
