#include "analytics/OtlpEncoder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace pellumar::otlp {
namespace {

// SEVERITY_NUMBER_INFO.
constexpr int kInfo = 9;
constexpr qint64 kNanosecondsInMillisecond = 1'000'000;

struct ValueEncoder {
    QJsonObject operator()(bool value) const { return {{"boolValue", value}}; }
    QJsonObject operator()(qint64 value) const { return {{"intValue", QString::number(value)}}; }
    QJsonObject operator()(double value) const { return {{"doubleValue", value}}; }
    QJsonObject operator()(const QString& value) const { return {{"stringValue", value}}; }
};

void add(QJsonArray& attributes, const QString& key, const ParameterValue& value) {
    attributes.append(QJsonObject{{"key", key}, {"value", std::visit(ValueEncoder{}, value)}});
}

QString nanoseconds(qint64 milliseconds) {
    return QString::number(milliseconds * kNanosecondsInMillisecond);
}

QJsonObject resourceOf(const BatchSource& source) {
    QJsonArray attributes;
    add(attributes, QStringLiteral("service.name"), source.versions.serviceName);
    add(attributes, QStringLiteral("service.version"), source.versions.serviceVersion);
    add(attributes, QStringLiteral("os.type"), source.versions.osType);
    add(attributes, QStringLiteral("os.version"), source.versions.osVersion);
    add(attributes, QStringLiteral("app.installation.id"), source.installation);
    for (const UserProperty& property : source.userProperties) {
        if (property.advertising && !source.consent.allowsSendingAdvertisingData()) {
            continue;
        }
        const QString key = QStringLiteral("pz.user_property.") + property.name;
        add(attributes, key, property.value);
        add(attributes, key + QStringLiteral(".set_at"), property.time);
    }
    for (const auto& [reason, number] : source.losses) {
        add(attributes, QStringLiteral("pz.lost.") + reason, number);
    }
    return {{"attributes", attributes}};
}

QJsonObject recordOf(const StoredEvent& stored) {
    QJsonArray attributes;
    // For receivers that are older than the member "eventName".
    add(attributes, QStringLiteral("event.name"), stored.event.name);
    add(attributes, QStringLiteral("log.record.uid"), stored.uid);
    add(attributes, QStringLiteral("session.id"), stored.sessionUid);
    for (const ConsentKind kind : kConsentKinds) {
        if (stored.consent.status(kind) != ConsentStatus::kUnset) {
            add(attributes,
                QStringLiteral("pz.consent.") + toText(kind),
                toText(stored.consent.status(kind)));
        }
    }
    for (const EventParameter& parameter : stored.event.parameters) {
        add(attributes, parameter.name, parameter.value);
    }
    QJsonObject record{{"timeUnixNano", nanoseconds(stored.time)},
                       {"observedTimeUnixNano", nanoseconds(stored.time)},
                       {"severityNumber", kInfo},
                       {"eventName", stored.event.name},
                       {"attributes", attributes}};
    if (stored.event.droppedParameters > 0) {
        record.insert("droppedAttributesCount", stored.event.droppedParameters);
    }
    return record;
}

}  // namespace

QByteArray encode(const BatchSource& source, const std::vector<StoredEvent>& events) {
    QJsonArray records;
    for (const StoredEvent& event : events) {
        records.append(recordOf(event));
    }
    const QJsonObject scope{{"name", "pellumar.analytics"},
                            {"version", source.versions.serviceVersion}};
    const QJsonObject scopeLogs{{"scope", scope}, {"logRecords", records}};
    const QJsonObject resourceLogs{{"resource", resourceOf(source)},
                                   {"scopeLogs", QJsonArray{scopeLogs}}};
    return QJsonDocument(QJsonObject{{"resourceLogs", QJsonArray{resourceLogs}}})
        .toJson(QJsonDocument::Compact);
}

qint64 rejectedRecords(const QByteArray& body) {
    const QJsonValue rejected = QJsonDocument::fromJson(body)
                                    .object()
                                    .value(u"partialSuccess")
                                    .toObject()
                                    .value(u"rejectedLogRecords");
    return rejected.isString() ? rejected.toString().toLongLong() : rejected.toInteger();
}

}  // namespace pellumar::otlp
