#include "analytics/AnalyticsStore.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <string>

#include "analytics/MeasurementFolder.h"

namespace pellumar {
namespace {

constexpr qint64 kPageBytes = 4096;
// Beyond this share of the bound the oldest go: the rest is for what is not events, and for the
// pages that removing needs itself.
constexpr qint64 kFullPercent = 90;
constexpr qint64 kMostDays = 60;

// Another version is another program's.
constexpr qint64 kVersion = 2;
constexpr const char* kSchema =
    "CREATE TABLE events (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL,"
    "  time INTEGER NOT NULL, session TEXT NOT NULL, parameters TEXT NOT NULL);"
    "CREATE TABLE counts (name TEXT NOT NULL, day INTEGER NOT NULL, total INTEGER NOT NULL,"
    "  PRIMARY KEY (name, day)) WITHOUT ROWID;"
    "CREATE TABLE state (id INTEGER PRIMARY KEY CHECK (id = 1), memory TEXT NOT NULL);"
    "PRAGMA user_version = 2";

// As a person reads them.
constexpr std::array kLines = {
    "SELECT json_object('table', 'events', 'id', id, 'name', name, 'time', time,"
    "  'session', session, 'parameters', json(parameters)) FROM events ORDER BY id",
    "SELECT json_object('table', 'counts', 'name', name, 'day', day, 'total', total) FROM counts",
    "SELECT json_insert(memory, '$.table', 'state') FROM state",
};

}  // namespace

AnalyticsStore::AnalyticsStore(const std::filesystem::path& folder, qint64 mostBytes)
    : database_(MeasurementFolder::storeIn(folder), Database::Mode::kMake), mostBytes_(mostBytes) {
    // A commit may be lost when the machine stops, but not when the process does; the file is whole
    // in both cases.
    database_.script(
        "PRAGMA page_size = 4096; PRAGMA auto_vacuum = INCREMENTAL; PRAGMA journal_mode = WAL;"
        "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 128;"
        "PRAGMA journal_size_limit = 524288; PRAGMA cache_size = -512;"
        "PRAGMA temp_store = MEMORY; PRAGMA secure_delete = FAST; PRAGMA trusted_schema = OFF;");
    database_.script(
        ("PRAGMA max_page_count = " + std::to_string(mostBytes_ / kPageBytes)).c_str());
    if (database_.rows("PRAGMA quick_check(1)").value(0).value(0) != QByteArray("ok")) {
        database_.fail(DatabaseOutcome::kDamaged);
    }
    const qint64 version = database_.number("PRAGMA user_version");
    if (version != 0 && version != kVersion) {
        database_.fail(DatabaseOutcome::kUnavailable);
    }
    database_.script("BEGIN IMMEDIATE");
    if (version == 0) {
        database_.script(kSchema);
    }
    memory_.read(database_.rows("SELECT memory FROM state").value(0).value(0).toByteArray());
    database_.script("COMMIT");
}

qint64 AnalyticsStore::waiting(qint64 most) {
    return database_.number("SELECT count(*) FROM (SELECT 1 FROM events LIMIT ?)", {most});
}

DatabaseOutcome AnalyticsStore::write(const Change& change) {
    DatabaseOutcome outcome = DatabaseOutcome::kFull;
    // A tenth is enough for all but a burst of very long events.
    for (const qint64 percent : {0, 10, 50, 100}) {
        Memory memory = change.memory;
        outcome = database_.transact([&] {
            makeRoom(memory, percent);
            apply(change, memory);
        });
        if (outcome != DatabaseOutcome::kFull) {
            memory_ = outcome == DatabaseOutcome::kDone ? memory : memory_;
            break;
        }
    }
    return outcome;
}

void AnalyticsStore::apply(const Change& change, Memory& memory) {
    remove(change, memory);
    QSet<QString> tooMany;
    for (const auto& [day, times] : change.counts) {
        if (!count(day.first, day.second, times)) {
            memory.lose(loss::kInvalid, times);
            tooMany.insert(day.first);
        }
    }
    for (const StoredEvent& event : change.events) {
        if (!tooMany.contains(event.name)) {
            database_.run(
                "INSERT INTO events (name, time, session, parameters) VALUES (?, ?, ?, ?)",
                {event.name, event.time, event.session, event.parameters});
        }
    }
    if (memory != memory_) {
        database_.run("INSERT OR REPLACE INTO state (id, memory) VALUES (1, ?)", {memory.toJson()});
    }
}

void AnalyticsStore::remove(const Change& change, Memory& memory) {
    if (change.gone > 0) {
        database_.run("DELETE FROM events WHERE id <= ?", {change.gone});
    }
    if (change.forgetsAutomatic) {
        database_.script(
            "DELETE FROM events WHERE substr(name, 1, 3) = 'pz_';"
            "DELETE FROM counts WHERE substr(name, 1, 3) = 'pz_'");
    }
    if (change.tooOld) {
        memory.lose(loss::kExpired,
                    database_.run("DELETE FROM events WHERE time < ?", {*change.tooOld}));
        database_.run("DELETE FROM counts WHERE day BETWEEN 0 AND ?", {change.today - kMostDays});
        database_.script("PRAGMA incremental_vacuum");
    }
    const qint64 used =
        database_.number("PRAGMA page_count") - database_.number("PRAGMA freelist_count");
    if (used * kPageBytes * 100 > mostBytes_ * kFullPercent) {
        makeRoom(memory, 10);
    }
}

bool AnalyticsStore::count(const QString& name, qint64 day, qint64 times) {
    if (database_.number("SELECT 1 FROM counts WHERE name = ? AND day = ?", {name, kEver}) == 0 &&
        database_.number("SELECT count(*) FROM counts WHERE day = ?", {kEver}) >= kMostNames) {
        return false;
    }
    for (const qint64 each : {kEver, day}) {
        database_.run(
            "INSERT INTO counts (name, day, total) VALUES (?, ?, ?) "
            "ON CONFLICT DO UPDATE SET total = total + excluded.total",
            {name, each, times});
    }
    return true;
}

void AnalyticsStore::makeRoom(Memory& memory, qint64 percent) {
    if (percent > 0) {
        // Rows have no gaps but where a batch has left, so the span tells the number well enough.
        const qint64 first = database_.number("SELECT min(id) FROM events");
        const qint64 last = database_.number("SELECT max(id) FROM events");
        const qint64 most = std::max<qint64>(1, (last - first + 1) * percent / 100);
        memory.lose(loss::kNoRoom,
                    database_.run("DELETE FROM events WHERE id < ?", {first + most}));
    }
}

std::vector<StoredEvent> AnalyticsStore::oldest(qint64 most) {
    std::vector<StoredEvent> events;
    for (const QVariantList& row : database_.rows(
             "SELECT id, name, time, session, parameters FROM events ORDER BY id LIMIT ?",
             {most})) {
        events.push_back({.row = row[0].toLongLong(),
                          .name = row[1].toString(),
                          .time = row[2].toLongLong(),
                          .session = row[3].toString(),
                          .parameters = row[4].toByteArray()});
    }
    return events;
}

qint64 AnalyticsStore::times(const QString& event, std::optional<qint64> from) {
    return from ? database_.number("SELECT sum(total) FROM counts WHERE name = ? AND day >= ?",
                                   {event, std::max<qint64>(*from, 0)})
                : database_.number("SELECT total FROM counts WHERE name = ? AND day = ?",
                                   {event, kEver});
}

std::optional<QByteArray> AnalyticsStore::jsonLines(const std::filesystem::path& folder) {
    const std::filesystem::path file = MeasurementFolder::storeIn(folder);
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return error ? std::nullopt : std::optional(QByteArray());
    }
    Database database(file, Database::Mode::kRead);
    QByteArray lines;
    // At one moment of what is being written.
    database.script("BEGIN");
    for (const char* const each : kLines) {
        for (const QVariantList& row : database.rows(each)) {
            lines += row[0].toByteArray() + '\n';
        }
    }
    return database.takeOutcome() == DatabaseOutcome::kDone ? std::optional(lines) : std::nullopt;
}

}  // namespace pellumar
