#include "analytics/MeasurementConfig.h"

#include <QStringList>
#include <algorithm>
#include <optional>

#include "analytics/Event.h"

namespace pellumar {
namespace {

std::optional<int> numberOf(const QString& text) {
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

QStringList itemsOf(const QString& list) {
    return list.split(u',', Qt::SkipEmptyParts);
}

}  // namespace

MeasurementConfig MeasurementConfig::read(const MeasurementParameters& parameters) {
    MeasurementConfig config;
    if (!parameters) {
        return config;
    }
    const auto read = [&](int& value, const char* key, int least, int most) {
        value = std::clamp(numberOf(parameters(QLatin1String(key))).value_or(value), least, most);
    };
    read(config.samplingPermille, "measurement_sampling", 0, kAll);
    read(config.batchEvents, "measurement_batch_events", 1, 1000);
    read(config.intervalSeconds, "measurement_interval_seconds", 60, 24 * 60 * 60);
    read(config.retentionDays, "measurement_retention_days", 1, 60);
    read(config.identifierDays, "measurement_identifier_days", 1, 365);
    for (const QString& item : itemsOf(parameters(QStringLiteral("measurement_event_sampling")))) {
        if (const std::optional<int> permille = numberOf(item.section(u'=', 1))) {
            config.eventSamplingPermille[item.section(u'=', 0, 0).trimmed()] =
                std::clamp(*permille, 0, kAll);
        }
    }
    for (const QString& name : itemsOf(parameters(QStringLiteral("measurement_blocked_events")))) {
        config.blockedEvents.insert(name.trimmed());
    }
    return config;
}

int MeasurementConfig::samplingOf(const QString& event) const {
    const int otherwise = event.startsWith(kReservedPrefix) ? kAll : samplingPermille;
    return eventSamplingPermille.value(event, otherwise);
}

}  // namespace pellumar
