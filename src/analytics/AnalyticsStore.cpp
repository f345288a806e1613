#include "analytics/AnalyticsStore.h"

#include <fcntl.h>
#include <unistd.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "analytics/MeasurementFolder.h"

namespace pellumar {
namespace {

constexpr qint64 kPageBytes = 4096;
// Beyond the first share the oldest go, until the second is reached: the rest is for what is not
// events, and for the pages that removing needs itself.
constexpr qint64 kFullPercent = 90;
constexpr qint64 kRoomyPercent = 80;
// 2020 in milliseconds since 1970. No clock that was set says less.
constexpr qint64 kEarliestTime = 1'577'836'800'000;
constexpr qint64 kMostDays = 60;
// What an event takes beside its texts, in a batch.
constexpr qsizetype kBytesAround = 400;

constexpr std::string_view kSelect = "SELECT * FROM ";
constexpr std::array<std::string_view, 5> kTables = {"SELECT * FROM events",
                                                     "SELECT * FROM user_properties",
                                                     "SELECT * FROM counts",
                                                     "SELECT * FROM losses",
                                                     "SELECT * FROM state"};

std::string nameOf(std::string_view table) {
    return std::string(table.substr(kSelect.size()));
}

// Another version is another program's.
constexpr qint64 kVersion = 1;
constexpr const char* kSchema =
    "CREATE TABLE state (key TEXT PRIMARY KEY, value) WITHOUT ROWID;"
    "CREATE TABLE events (id INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL,"
    "  name TEXT NOT NULL, time INTEGER NOT NULL, session TEXT NOT NULL,"
    "  dropped_parameters INTEGER NOT NULL, parameters TEXT NOT NULL);"
    "CREATE TABLE user_properties (name TEXT PRIMARY KEY, value TEXT NOT NULL,"
    "  advertising INTEGER NOT NULL) WITHOUT ROWID;"
    // The day -1 stands for all days.
    "CREATE TABLE counts (name TEXT NOT NULL, day INTEGER NOT NULL, total INTEGER NOT NULL,"
    "  PRIMARY KEY (name, day)) WITHOUT ROWID;"
    "CREATE TABLE losses (reason TEXT PRIMARY KEY, total INTEGER NOT NULL) WITHOUT ROWID;"
    "PRAGMA user_version = 1";

// As the column "key" has them.
const std::array<std::pair<QString, QString Memory::*>, 5> kTexts = {{
    {QStringLiteral("installation"), &Memory::installation},
    {QStringLiteral("session"), &Memory::session},
    {QStringLiteral("app_version"), &Memory::applicationVersion},
    {QStringLiteral("system_version"), &Memory::systemVersion},
    {QStringLiteral("crash_told"), &Memory::toldCrash},
}};
const std::array<std::pair<QString, qint64 Memory::*>, 10> kNumbers = {{
    {QStringLiteral("installed_at"), &Memory::installedAt},
    {QStringLiteral("session_number"), &Memory::sessionNumber},
    {QStringLiteral("last_seen"), &Memory::lastSeen},
    {QStringLiteral("engagement"), &Memory::engagement},
    {QStringLiteral("opened"), &Memory::isOpened},
    {QStringLiteral("upload_failures"), &Memory::failures},
    {QStringLiteral("upload_held_from"), &Memory::heldFrom},
    {QStringLiteral("upload_held_until"), &Memory::heldUntil},
    {QStringLiteral("clock_seen"), &Memory::clockSeen},
    {QStringLiteral("clock_steady_since"), &Memory::clockSteadySince},
}};

}  // namespace

AnalyticsStore::Opened AnalyticsStore::open(const std::filesystem::path& folder, qint64 mostBytes) {
    const std::filesystem::path file = MeasurementFolder::storeIn(folder);
    // What SQLite makes beside it gets its permissions.
    const int made = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (made >= 0) {
        ::close(made);
    }
    auto store = std::unique_ptr<AnalyticsStore>(new AnalyticsStore(file, mostBytes));
    const DatabaseOutcome outcome = store->prepare();
    if (outcome != DatabaseOutcome::kDone) {
        store.reset();
    }
    return {.store = std::move(store), .isDamaged = outcome == DatabaseOutcome::kDamaged};
}

AnalyticsStore::AnalyticsStore(const std::filesystem::path& file, qint64 mostBytes)
    : database_(file, Database::Mode::kMake), mostBytes_(mostBytes) {}

DatabaseOutcome AnalyticsStore::prepare() {
    // A commit may be lost when the machine stops, but not when the process does; the file is whole
    // in both cases.
    database_.run(
        "PRAGMA page_size = 4096; PRAGMA auto_vacuum = INCREMENTAL; PRAGMA journal_mode = WAL;"
        "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 128;"
        "PRAGMA journal_size_limit = 524288; PRAGMA cache_size = -512;"
        "PRAGMA temp_store = MEMORY; PRAGMA secure_delete = FAST; PRAGMA trusted_schema = OFF;");
    database_.run(("PRAGMA max_page_count = " + std::to_string(mostBytes_ / kPageBytes)).c_str());
    bool isSound = false;
    {
        Database::Rows check = database_.query("PRAGMA quick_check(1)");
        isSound = check.next() && check.text(0) == u"ok";
    }
    if (const DatabaseOutcome outcome = database_.takeOutcome();
        outcome != DatabaseOutcome::kDone || !isSound) {
        return outcome != DatabaseOutcome::kDone ? outcome : DatabaseOutcome::kDamaged;
    }
    database_.begin();
    const qint64 version = database_.number("PRAGMA user_version");
    if (version == 0) {
        database_.run(kSchema);
    }
    readMemory();
    const DatabaseOutcome outcome = database_.commit();
    return version == 0 || version == kVersion ? outcome : DatabaseOutcome::kUnavailable;
}

void AnalyticsStore::readMemory() {
    Database::Rows rows = database_.query("SELECT key, value FROM state");
    while (rows.next()) {
        const QString key = rows.text(0);
        for (const auto& [name, member] : kTexts) {
            if (name == key) {
                memory_.*member = rows.text(1);
            }
        }
        for (const auto& [name, member] : kNumbers) {
            if (name == key) {
                memory_.*member = rows.number(1);
            }
        }
    }
}

std::vector<UserProperty> AnalyticsStore::properties() {
    std::vector<UserProperty> properties;
    Database::Rows rows =
        database_.query("SELECT name, value, advertising FROM user_properties ORDER BY name");
    while (rows.next()) {
        properties.push_back(
            {.name = rows.text(0), .value = rows.text(1), .advertising = rows.number(2) != 0});
    }
    return properties;
}

std::map<QString, qint64> AnalyticsStore::losses() {
    std::map<QString, qint64> losses;
    Database::Rows rows = database_.query("SELECT reason, total FROM losses");
    while (rows.next()) {
        losses.emplace(rows.text(0), rows.number(1));
    }
    return losses;
}

qint64 AnalyticsStore::waiting(qint64 most) {
    return database_.number("SELECT count(*) FROM (SELECT 1 FROM events LIMIT ?)", most);
}

DatabaseOutcome AnalyticsStore::write(const Change& change) {
    DatabaseOutcome outcome = DatabaseOutcome::kFull;
    constexpr int kMostTries = 2;
    for (int i = 0; i < kMostTries && outcome == DatabaseOutcome::kFull; ++i) {
        database_.begin();
        if (i > 0) {
            lose(loss::kNoRoom, removeOldest());
            if (const DatabaseOutcome made = database_.commit(); made != DatabaseOutcome::kDone) {
                return made;
            }
            database_.begin();
        }
        apply(change);
        outcome = database_.commit();
    }
    if (outcome == DatabaseOutcome::kDone) {
        memory_ = change.memory;
    }
    return outcome;
}

void AnalyticsStore::apply(const Change& change) {
    if (change.forgetsLosses) {
        database_.execute("DELETE FROM losses");
    }
    for (const qint64 row : change.gone) {
        database_.execute("DELETE FROM events WHERE id = ?", row);
    }
    if (change.forgetsAutomatic) {
        database_.execute("DELETE FROM events WHERE substr(name, 1, 3) = ?", kReservedPrefix);
        database_.execute("DELETE FROM counts WHERE substr(name, 1, 3) = ?", kReservedPrefix);
        database_.execute("DELETE FROM user_properties WHERE substr(name, 1, 3) = ?",
                          kReservedPrefix);
    }
    if (change.tooOld) {
        lose(loss::kExpired,
             database_.execute(
                 "DELETE FROM events WHERE time >= ? AND time < ?", kEarliestTime, *change.tooOld));
        database_.execute("DELETE FROM counts WHERE day BETWEEN 0 AND ?", change.today - kMostDays);
        database_.run("PRAGMA incremental_vacuum");
    }
    constexpr std::size_t kBetweenLooks = 100;
    for (std::size_t i = 0; i < change.events.size(); ++i) {
        add(change.events[i]);
        if (i % kBetweenLooks == 0) {
            keepBound();
        }
    }
    qint64 wrong = 0;
    for (const UserProperty& property : change.properties) {
        wrong += set(property) ? 0 : 1;
    }
    lose(loss::kInvalid, wrong);
    for (const auto& [reason, number] : change.losses) {
        lose(reason, number);
    }
    writeMemory(change.memory);
}

void AnalyticsStore::add(const Change::Happened& happened) {
    constexpr std::string_view kCount =
        "INSERT INTO counts (name, day, total) VALUES (?, ?, 1) "
        "ON CONFLICT DO UPDATE SET total = total + 1";
    constexpr qint64 kEver = -1;
    if (database_.execute("UPDATE counts SET total = total + 1 WHERE name = ? AND day = -1",
                          happened.name) == 0) {
        if (database_.number("SELECT count(*) FROM counts WHERE day = -1") >= kMostNames) {
            lose(loss::kInvalid, 1);
            return;
        }
        database_.execute(kCount, happened.name, kEver);
    }
    database_.execute(kCount, happened.name, happened.day);
    if (happened.kept) {
        const StoredEvent& event = *happened.kept;
        database_.execute(
            "INSERT INTO events (uid, name, time, session, dropped_parameters, parameters) "
            "VALUES (?, ?, ?, ?, ?, ?)",
            event.uid,
            event.name,
            event.time,
            event.session,
            qint64{event.droppedParameters},
            event.parameters);
    }
}

bool AnalyticsStore::set(const UserProperty& property) {
    if (property.value.isEmpty()) {
        database_.execute("DELETE FROM user_properties WHERE name = ?", property.name);
        return true;
    }
    // Those of audiences are not the application's, and are as many as there are audiences.
    const bool isFull =
        !property.name.startsWith(kReservedPrefix) &&
        database_.number(
            "SELECT count(*) FROM user_properties WHERE substr(name, 1, 3) <> ? AND name <> ?",
            kReservedPrefix,
            property.name) >= kMostProperties;
    if (!isFull) {
        database_.execute(
            "INSERT OR REPLACE INTO user_properties (name, value, advertising) VALUES (?, ?, ?)",
            property.name,
            property.value,
            qint64{property.advertising});
    }
    return !isFull;
}

void AnalyticsStore::writeMemory(const Memory& memory) {
    constexpr std::string_view kSet = "INSERT OR REPLACE INTO state (key, value) VALUES (?, ?)";
    for (const auto& [name, member] : kTexts) {
        if (memory.*member != memory_.*member) {
            database_.execute(kSet, name, memory.*member);
        }
    }
    for (const auto& [name, member] : kNumbers) {
        if (memory.*member != memory_.*member) {
            database_.execute(kSet, name, memory.*member);
        }
    }
}

void AnalyticsStore::lose(const QString& reason, qint64 number) {
    if (number > 0) {
        database_.execute(
            "INSERT INTO losses (reason, total) VALUES (?, ?) "
            "ON CONFLICT DO UPDATE SET total = total + excluded.total",
            reason,
            number);
    }
}

qint64 AnalyticsStore::bytesInUse() {
    const qint64 pages = database_.number("PRAGMA page_count");
    return (pages - database_.number("PRAGMA freelist_count")) * kPageBytes;
}

void AnalyticsStore::keepBound() {
    if (bytesInUse() * 100 < mostBytes_ * kFullPercent) {
        return;
    }
    while (bytesInUse() * 100 > mostBytes_ * kRoomyPercent) {
        const qint64 removed = removeOldest();
        if (removed == 0) {
            break;
        }
        lose(loss::kNoRoom, removed);
    }
}

qint64 AnalyticsStore::removeOldest() {
    // Rows have no gaps but where a batch has left, so the span tells the number well enough.
    const qint64 first = database_.number("SELECT min(id) FROM events");
    const qint64 last = database_.number("SELECT max(id) FROM events");
    return database_.execute("DELETE FROM events WHERE id < ?",
                             first + std::max<qint64>(1, (last - first + 1) / 10));
}

std::vector<StoredEvent> AnalyticsStore::oldest(qint64 most, qsizetype mostBytes) {
    std::vector<StoredEvent> events;
    qsizetype bytes = 0;
    Database::Rows rows = database_.query(
        "SELECT id, uid, name, time, session, dropped_parameters, parameters FROM events "
        "ORDER BY id LIMIT ?",
        most);
    while (rows.next()) {
        StoredEvent event{.row = rows.number(0),
                          .uid = rows.text(1),
                          .name = rows.text(2),
                          .time = rows.number(3),
                          .session = rows.text(4),
                          .droppedParameters = static_cast<int>(rows.number(5)),
                          .parameters = rows.bytes(6)};
        bytes += kBytesAround + event.name.size() + event.parameters.size();
        if (bytes > mostBytes && !events.empty()) {
            break;
        }
        events.push_back(std::move(event));
    }
    return events;
}

qint64 AnalyticsStore::times(const QString& event, std::optional<qint64> from) {
    return from ? database_.number(
                      "SELECT coalesce(sum(total), 0) FROM counts WHERE name = ? AND day >= ?",
                      event,
                      std::max<qint64>(*from, 0))
                : database_.number("SELECT total FROM counts WHERE name = ? AND day = -1", event);
}

bool AnalyticsStore::wipe() {
    database_.begin();
    for (const std::string_view table : kTables) {
        database_.run(("DELETE FROM " + nameOf(table)).c_str());
    }
    if (database_.commit() != DatabaseOutcome::kDone) {
        return false;
    }
    // Pages that are free and the log still hold what was.
    database_.run("PRAGMA incremental_vacuum");
    // Says 1 while a reader keeps it from its end, which is no failure.
    const bool isLogBusy = database_.number("PRAGMA wal_checkpoint(TRUNCATE)") != 0;
    return database_.takeOutcome() == DatabaseOutcome::kDone && !isLogBusy;
}

std::optional<QByteArray> AnalyticsStore::jsonLines(const std::filesystem::path& folder) {
    const std::filesystem::path file = MeasurementFolder::storeIn(folder);
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return error ? std::nullopt : std::optional(QByteArray());
    }
    Database database(file, Database::Mode::kRead);
    QByteArray lines;
    database.run("BEGIN");
    for (const std::string_view table : kTables) {
        Database::Rows rows = database.query(table);
        while (rows.next()) {
            QJsonObject row{{"table", QString::fromStdString(nameOf(table))}};
            for (int i = 0; i < rows.columns(); ++i) {
                const QJsonDocument inside = QJsonDocument::fromJson(rows.bytes(i));
                row.insert(rows.name(i),
                           rows.isNumber(i)   ? QJsonValue(rows.number(i))
                           : inside.isArray() ? QJsonValue(inside.array())
                                              : QJsonValue(rows.text(i)));
            }
            lines += QJsonDocument(row).toJson(QJsonDocument::Compact) + '\n';
        }
    }
    return database.commit() == DatabaseOutcome::kDone ? std::optional(lines) : std::nullopt;
}

}  // namespace pellumar
