#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "analytics/Database.h"
#include "analytics/Memory.h"

namespace pellumar {

// An event as it is kept until it has left.
struct StoredEvent {
    // Given by the store; grows with every event.
    qint64 row = 0;
    QString name;
    // Milliseconds since 1970 in UTC.
    qint64 time = 0;
    // Random.
    QString session;
    // Its parameters as OTLP has them: JSON, a list of attributes.
    QByteArray parameters;
};

// What is written at once, or not at all.
struct Change {
    Memory memory{};
    // How often what has happened, by name and local day, counted from 1970.
    std::map<std::pair<QString, qint64>, qint64> counts{};
    // Of that, what is kept.
    std::vector<StoredEvent> events{};
    // The row up to which everything has left.
    qint64 gone = 0;
    // Events from before it are too old, and so are counts of the 60 days before the day.
    std::optional<qint64> tooOld{};
    qint64 today = 0;
    // Nothing is kept any more that the engine has made by itself.
    bool forgetsAutomatic = false;
};

// The file of all that has been measured: "usage.db" in a folder, a SQLite database with a log
// beside it, so that what is committed outlives a process that is killed at any moment. Who opens
// it holds the folder. One thread at a time.
class AnalyticsStore {
  public:
    static constexpr qint64 kMostBytes = 8LL << 20;
    // Names beyond these are an application that makes them up.
    static constexpr qint64 kMostNames = 500;
    // The day of a count that stands for all days.
    static constexpr qint64 kEver = -1;

    // Opens the store of a folder, or makes it; one of another version is left as it is. Whether
    // that has worked is the first outcome. The file never grows beyond `mostBytes`, nor the log
    // beside it much beyond half a MiB.
    explicit AnalyticsStore(const std::filesystem::path& folder, qint64 mostBytes = kMostBytes);

    // As of the last write.
    [[nodiscard]] const Memory& memory() const { return memory_; }
    // How many events wait to leave, but not counting beyond `most`.
    [[nodiscard]] qint64 waiting(qint64 most);

    // Writes a change. Where there is no room, the oldest events go. Events of too many names are
    // left out. Both are counted as lost.
    [[nodiscard]] DatabaseOutcome write(const Change& change);
    // The events that have waited longest.
    [[nodiscard]] std::vector<StoredEvent> oldest(qint64 most);
    // How often an event has happened, from the local day `from` on; from the beginning.
    [[nodiscard]] qint64 times(const QString& event, std::optional<qint64> from);
    // What is kept, for a person: an object of JSON for each row, with the name of its table. Reads
    // beside a process that writes. Nothing if there is something that cannot be read.
    [[nodiscard]] static std::optional<QByteArray> jsonLines(const std::filesystem::path& folder);

    // What came of opening and of reading; nothing is read after a failure until it is taken.
    [[nodiscard]] DatabaseOutcome takeOutcome() { return database_.takeOutcome(); }
    // From here on nothing waits for the disk.
    void hurry() { database_.script("PRAGMA wal_autocheckpoint = 0"); }

  private:
    void apply(const Change& change, Memory& memory);
    void remove(const Change& change, Memory& memory);
    [[nodiscard]] bool count(const QString& name, qint64 day, qint64 times);
    void makeRoom(Memory& memory, qint64 percent);

    Database database_;
    const qint64 mostBytes_;
    Memory memory_;
};

}  // namespace pellumar
