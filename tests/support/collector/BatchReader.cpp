#include "support/collector/BatchReader.h"

#include <libdeflate.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <memory>

namespace pellumar::test {
namespace {

constexpr std::size_t kMostBytes = 20 << 20;

class Reader {
  public:
    explicit Reader(QStringList& faults) : faults_(faults) {}

    void require(bool condition, const char* what) {
        if (!condition) {
            faults_.append(QString::fromLatin1(what));
        }
    }

    QByteArray unpack(const std::string& body) {
        QByteArray unpacked(kMostBytes, Qt::Uninitialized);
        std::size_t size = 0;
        const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
            decompressor(libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
        const libdeflate_result result = libdeflate_gzip_decompress(
            decompressor.get(), body.data(), body.size(), unpacked.data(), kMostBytes, &size);
        require(result == LIBDEFLATE_SUCCESS, "the body is not gzip of less than 20 MiB");
        unpacked.resize(static_cast<qsizetype>(size));
        return unpacked;
    }

    Attributes attributes(const QJsonValue& list) {
        Attributes attributes;
        for (const QJsonValue each : list.toArray()) {
            const QString key = each["key"].toString();
            require(!key.isEmpty() && !attributes.contains(key),
                    "an attribute has no key of its own");
            require(each.toObject().size() == 2, "an attribute is a key and a value");
            attributes.insert(key, value(each["value"].toObject()));
        }
        return attributes;
    }

    CollectedRecord record(const QJsonObject& json) {
        CollectedRecord record{.name = json["eventName"].toString(),
                               .attributes = attributes(json["attributes"])};
        const QString time = json["timeUnixNano"].toString();
        record.milliseconds = time.toLongLong() / 1'000'000;
        require(!time.isEmpty() && record.milliseconds > 0, "timeUnixNano is no decimal text");
        require(json["observedTimeUnixNano"].toString().toLongLong() > 0,
                "observedTimeUnixNano is no decimal text");
        require(json["severityNumber"].isDouble(), "severityNumber is no number");
        require(record.attributes["event.name"] == record.name, "event.name is not the name");
        require(!record.attributes["log.record.uid"].isEmpty(), "log.record.uid is missing");
        return record;
    }

  private:
    // As a text; the type is checked.
    QString value(const QJsonObject& json) {
        require(json.size() == 1, "a value has one type");
        if (json.contains("stringValue")) {
            require(json["stringValue"].isString(), "stringValue is no text");
            return json["stringValue"].toString();
        }
        if (json.contains("intValue")) {
            bool isNumber = false;
            json["intValue"].toString().toLongLong(&isNumber);
            require(isNumber, "intValue is no decimal text");
            return json["intValue"].toString();
        }
        if (json.contains("boolValue")) {
            require(json["boolValue"].isBool(), "boolValue is no truth value");
            return json["boolValue"].toBool() ? "true" : "false";
        }
        require(json["doubleValue"].isDouble(), "a value of no known type");
        return QString::number(json["doubleValue"].toDouble());
    }

    QStringList& faults_;
};

bool hasLine(const std::string& head, const std::string& line) {
    return head.find("\r\n" + line + "\r\n") != std::string::npos;
}

}  // namespace

CollectedBatch readBatch(const HttpRequest& request, QStringList& faults) {
    Reader reader(faults);
    reader.require(request.head.starts_with("post /v1/logs http/1.1\r\n"), "not POST /v1/logs");
    reader.require(hasLine(request.head, "content-type: application/json"), "no JSON");
    reader.require(hasLine(request.head, "content-encoding: gzip"), "not compressed");
    CollectedBatch batch{
        .resource = {}, .records = {}, .head = request.head, .body = reader.unpack(request.body)};
    const QJsonObject root = QJsonDocument::fromJson(batch.body).object();
    const QJsonArray resourceLogs = root["resourceLogs"].toArray();
    reader.require(root.size() == 1 && !resourceLogs.isEmpty(), "an empty envelope");
    for (const QJsonValue each : resourceLogs) {
        batch.resource = reader.attributes(each["resource"]["attributes"]);
        for (const char* key : {"service.name", "service.version", "os.type", "os.version"}) {
            reader.require(!batch.resource[key].isEmpty(), key);
        }
        const QJsonArray scopeLogs = each["scopeLogs"].toArray();
        reader.require(!scopeLogs.isEmpty(), "an empty envelope");
        for (const QJsonValue scope : scopeLogs) {
            reader.require(!scope["scope"]["name"].toString().isEmpty(), "a scope without a name");
            const QJsonArray records = scope["logRecords"].toArray();
            reader.require(!records.isEmpty(), "an empty envelope");
            for (const QJsonValue record : records) {
                batch.records.push_back(reader.record(record.toObject()));
            }
        }
    }
    return batch;
}

}  // namespace pellumar::test
