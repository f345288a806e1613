#include "analytics/OtlpEncoder.h"

#include <libdeflate.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>
#include <memory>

namespace pellumar::otlp {
namespace {

// SEVERITY_NUMBER_INFO.
constexpr int kInfo = 9;
constexpr int kCompression = 6;

struct ValueOf {
    QJsonObject operator()(bool value) const { return {{"boolValue", value}}; }
    QJsonObject operator()(qint64 value) const { return {{"intValue", QString::number(value)}}; }
    QJsonObject operator()(double value) const { return {{"doubleValue", value}}; }
    QJsonObject operator()(const QString& value) const { return {{"stringValue", value}}; }
};

void add(QJsonArray& attributes, const QString& key, const ParameterValue& value) {
    attributes.append(QJsonObject{{"key", key}, {"value", std::visit(ValueOf(), value)}});
}

// To the minute: nobody has to know more.
QString nanoseconds(qint64 milliseconds) {
    constexpr qint64 kMinute = 60'000;
    constexpr qint64 kNanosecondsInMillisecond = 1'000'000;
    return QString::number(milliseconds / kMinute * kMinute * kNanosecondsInMillisecond);
}

QJsonObject resourceOf(const ProductVersions& versions,
                       const Consent& consent,
                       const Memory& memory) {
    QJsonArray attributes;
    add(attributes, QStringLiteral("service.name"), versions.serviceName);
    add(attributes, QStringLiteral("service.version"), versions.serviceVersion);
    add(attributes, QStringLiteral("os.type"), versions.osType);
    add(attributes, QStringLiteral("os.version"), versions.osVersion);
    add(attributes, QStringLiteral("app.installation.id"), memory.installation);
    for (const ConsentKind kind : kConsentKinds) {
        if (const ConsentStatus status = consent.status(kind); status != ConsentStatus::kUnset) {
            add(attributes, QStringLiteral("pz.consent.") + toText(kind), toText(status));
        }
    }
    const QString property = QStringLiteral("pz.user_property.");
    for (auto each = memory.properties.begin(); each != memory.properties.end(); ++each) {
        add(attributes, property + each.key(), each->toString());
    }
    for (auto each = memory.audiences.begin(); each != memory.audiences.end(); ++each) {
        if (!each->toBool() || consent.maySendAdvertisingData()) {
            add(attributes, property + kAudiencePrefix + each.key(), QStringLiteral("1"));
        }
    }
    for (auto each = memory.losses.begin(); each != memory.losses.end(); ++each) {
        add(attributes, QStringLiteral("pz.lost.") + each.key(), each->toLongLong());
    }
    return {{"attributes", attributes}};
}

// For the receiver to tell doubles by: of an event it stays the same, and no other has it.
QString uidOf(const StoredEvent& event, const QString& installation) {
    return QUuid::createUuidV5(QUuid(installation), QByteArray::number(event.row))
        .toString(QUuid::WithoutBraces);
}

QJsonObject recordOf(const StoredEvent& event, const QString& installation) {
    QJsonArray attributes;
    // For receivers that are older than the member "eventName".
    add(attributes, QStringLiteral("event.name"), event.name);
    add(attributes, QStringLiteral("log.record.uid"), uidOf(event, installation));
    add(attributes, QStringLiteral("session.id"), event.session);
    const QJsonArray parameters = QJsonDocument::fromJson(event.parameters).array();
    for (const QJsonValue parameter : parameters) {
        attributes.append(parameter);
    }
    return {{"timeUnixNano", nanoseconds(event.time)},
            {"observedTimeUnixNano", nanoseconds(event.time)},
            {"severityNumber", kInfo},
            {"eventName", event.name},
            {"attributes", attributes}};
}

}  // namespace

QByteArray encode(const Event::Parameters& parameters) {
    QJsonArray attributes;
    for (const auto& [name, value] : parameters) {
        add(attributes, name, value);
    }
    return QJsonDocument(attributes).toJson(QJsonDocument::Compact);
}

QByteArray encode(const ProductVersions& versions,
                  const Consent& consent,
                  const Memory& memory,
                  const std::vector<StoredEvent>& events) {
    QJsonArray records;
    for (const StoredEvent& event : events) {
        records.append(recordOf(event, memory.installation));
    }
    const QJsonObject scope{{"name", "pellumar.analytics"}, {"version", versions.serviceVersion}};
    const QJsonObject scopeLogs{{"scope", scope}, {"logRecords", records}};
    const QJsonObject resourceLogs{{"resource", resourceOf(versions, consent, memory)},
                                   {"scopeLogs", QJsonArray{scopeLogs}}};
    return QJsonDocument(QJsonObject{{"resourceLogs", QJsonArray{resourceLogs}}})
        .toJson(QJsonDocument::Compact);
}

QByteArray gzip(const QByteArray& bytes) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(kCompression), libdeflate_free_compressor);
    if (!compressor) {
        return {};
    }
    const auto size = static_cast<std::size_t>(bytes.size());
    const std::size_t bound = libdeflate_gzip_compress_bound(compressor.get(), size);
    QByteArray compressed(static_cast<qsizetype>(bound), Qt::Uninitialized);
    compressed.resize(static_cast<qsizetype>(libdeflate_gzip_compress(
        compressor.get(), bytes.constData(), size, compressed.data(), bound)));
    return compressed;
}

}  // namespace pellumar::otlp
