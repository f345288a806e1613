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
    const auto number = [&](const QString& key, int least, int most, auto otherwise) {
        const int text = numberOf(parameters(key)).value_or(static_cast<int>(otherwise));
        return std::clamp(text, least, most);
    };
    config.samplingPermille = number(QStringLiteral("measurement_sampling"), 0, kAll, kAll);
    for (const QString& item : itemsOf(parameters(QStringLiteral("measurement_event_sampling")))) {
        if (const std::optional<int> permille = numberOf(item.section(u'=', 1))) {
            config.eventSamplingPermille[item.section(u'=', 0, 0).trimmed()] =
                std::clamp(*permille, 0, kAll);
        }
    }
    for (const QString& name : itemsOf(parameters(QStringLiteral("measurement_blocked_events")))) {
        config.blockedEvents.insert(name.trimmed());
    }
    config.batchEvents =
        number(QStringLiteral("measurement_batch_events"), 1, 1000, config.batchEvents);
    config.interval = std::chrono::seconds(number(
        QStringLiteral("measurement_interval_seconds"), 60, 24 * 60 * 60, config.interval.count()));
    config.retention = std::chrono::days(
        number(QStringLiteral("measurement_retention_days"), 1, 60, config.retention.count()));
    config.identifierLife = std::chrono::days(number(
        QStringLiteral("measurement_identifier_days"), 1, 365, config.identifierLife.count()));
    return config;
}

int MeasurementConfig::samplingOf(const QString& event) const {
    const auto own = eventSamplingPermille.find(event);
    if (own != eventSamplingPermille.end()) {
        return own->second;
    }
    return event.startsWith(kReservedPrefix) ? kAll : samplingPermille;
}

}  // namespace pellumar
