#include "analytics/MeasurementConfig.h"

#include <QStringList>
#include <algorithm>
#include <optional>

#include "analytics/EventNaming.h"

namespace pellumar {
namespace {

std::optional<int> numberOf(const QString& text) {
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

int within(int least, int most, const QString& text, int otherwise) {
    return std::clamp(numberOf(text).value_or(otherwise), least, most);
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
    config.samplingPermille =
        within(0, kAll, parameters(QStringLiteral("measurement_sampling")), kAll);
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
        within(1, 1000, parameters(QStringLiteral("measurement_batch_events")), config.batchEvents);
    config.interval =
        std::chrono::seconds(within(60,
                                    24 * 60 * 60,
                                    parameters(QStringLiteral("measurement_interval_seconds")),
                                    static_cast<int>(config.interval.count())));
    config.retention =
        std::chrono::days(within(1,
                                 60,
                                 parameters(QStringLiteral("measurement_retention_days")),
                                 static_cast<int>(config.retention.count())));
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
