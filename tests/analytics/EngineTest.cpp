#include "EngineTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <thread>

namespace pellumar::test {

bool log(AnalyticsEngine& engine, const QString& name, int times) {
    for (int i = 0; i < times; ++i) {
        engine.logEventWithName(name, QVariantMap{{"text", QString(100, 'a')}, {"n", i}});
        // Slower than the engine, so that nothing is dropped on the way.
        if (i % 100 == 99) {
            static_cast<void>(engine.waitUntilStored(kDeadline));
        }
    }
    return engine.waitUntilStored(kDeadline);
}

AnalyticsEnvironment EngineTest::environment(ConsentStatus consent) const {
    AnalyticsEnvironment environment;
    environment.folder = folder;
    environment.versions = {.serviceName = "test",
                            .serviceVersion = "1.0",
                            .osType = "linux",
                            .osVersion = "Debian 12"};
    environment.now = [this] { return Moment{.wall = wall, .elapsed = elapsed, .awake = awake}; };
    environment.consent = consent;
    environment.idle = std::chrono::milliseconds(0);
    return environment;
}

AnalyticsEnvironment EngineTest::quiet(QMap<QString, QString> parameters) const {
    AnalyticsEnvironment with = environment();
    parameters.insert("measurement_blocked_events", "pz_first_open,pz_session_start,blocked");
    with.parameters = [parameters](const QString& key) { return parameters.value(key); };
    return with;
}

AnalyticsEnvironment EngineTest::sending(const QString& address,
                                         const QMap<QString, QString>& parameters) const {
    AnalyticsEnvironment with = quiet(parameters);
    with.transport = HttpTransport::maker(address, {});
    return with;
}

std::vector<QJsonObject> EngineTest::rows(const QString& table) const {
    std::vector<QJsonObject> rows;
    const QByteArray lines = AnalyticsStore::jsonLines(folder).value_or(QByteArray());
    for (const QByteArray& line : lines.split('\n')) {
        const QJsonObject row = QJsonDocument::fromJson(line).object();
        if (row["table"].toString() == table) {
            rows.push_back(row);
        }
    }
    return rows;
}

QJsonValue EngineTest::state(const QString& key) const {
    const std::vector<QJsonObject> state = rows("state");
    return state.empty() ? QJsonValue() : state[0][key];
}

qint64 EngineTest::count(const QString& name, qint64 day) const {
    for (const QJsonObject& row : rows("counts")) {
        if (row["name"] == name && row["day"].toInteger() == day) {
            return row["total"].toInteger();
        }
    }
    return 0;
}

QStringList EngineTest::names() const {
    QStringList names;
    for (const QJsonObject& event : rows("events")) {
        names.append(event["name"].toString());
    }
    return names;
}

QStringList EngineTest::ownNames() const {
    QStringList own = names();
    own.removeIf([](const QString& name) { return name.startsWith("pz_"); });
    return own;
}

QString EngineTest::parameter(const QJsonObject& event, const QString& name) {
    const QJsonArray parameters = event["parameters"].toArray();
    for (const QJsonValue each : parameters) {
        if (each["key"].toString() == name) {
            return each["value"].toObject().begin().value().toVariant().toString();
        }
    }
    return {};
}

bool EngineTest::becomesTrue(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + kDeadline;
    while (!condition() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return condition();
}

}  // namespace pellumar::test
