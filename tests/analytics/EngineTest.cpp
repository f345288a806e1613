#include "EngineTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace pellumar::test {

std::vector<QJsonObject> storedRows(const std::filesystem::path& folder, const QString& table) {
    std::vector<QJsonObject> rows;
    const QList<QByteArray> lines =
        AnalyticsStore::jsonLines(folder).value_or(QByteArray()).split('\n');
    for (const QByteArray& line : lines) {
        const QJsonObject row = QJsonDocument::fromJson(line).object();
        if (row["table"].toString() == table) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::vector<StoredEvent> storedEvents(const std::filesystem::path& folder) {
    std::vector<StoredEvent> events;
    for (const QJsonObject& row : storedRows(folder, "events")) {
        StoredEvent event;
        event.uid = row["uid"].toString();
        event.name = row["name"].toString();
        event.time = row["time"].toInteger();
        event.session = row["session"].toString();
        event.parameters = QJsonDocument(row["parameters"].toArray()).toJson();
        events.push_back(std::move(event));
    }
    return events;
}

QStringList namesOf(const std::vector<StoredEvent>& events) {
    QStringList names;
    for (const StoredEvent& event : events) {
        names.append(event.name);
    }
    return names;
}

QStringList ownNames(const std::filesystem::path& folder) {
    QStringList names = namesOf(storedEvents(folder));
    names.removeIf([](const QString& name) { return name.startsWith("pz_"); });
    return names;
}

QString parameterOf(const StoredEvent& event, const QString& name) {
    const QJsonArray parameters = QJsonDocument::fromJson(event.parameters).array();
    for (const QJsonValue each : parameters) {
        if (each["key"].toString() == name) {
            return each["value"].toObject().begin().value().toVariant().toString();
        }
    }
    return {};
}

std::unique_ptr<AnalyticsStore> openStore(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    return AnalyticsStore::open(folder).store;
}

}  // namespace pellumar::test
