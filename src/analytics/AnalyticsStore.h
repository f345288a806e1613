#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "analytics/Database.h"
#include "analytics/Event.h"

namespace pellumar {

// An event as it is kept until it has left.
struct StoredEvent {
    // Given by the store; grows with every event.
    qint64 row = 0;
    // Random, for the receiver to tell doubles by.
    QString uid;
    QString name;
    // Milliseconds since 1970 in UTC.
    qint64 time = 0;
    // Random.
    QString session;
    int droppedParameters = 0;
    // Its parameters as OTLP has them: JSON, a list of attributes.
    QByteArray parameters;
};

// What is known from one process to the next. Times are milliseconds, moments since 1970 in UTC.
struct Memory {
    // Random, and made of nothing of the machine or the user; empty as long as nothing was kept.
    QString installation;
    qint64 installedAt = 0;

    // The last session; 0: there has been none. Without an identifier it is over.
    qint64 sessionNumber = 0;
    QString session;
    qint64 lastSeen = 0;
    // How long the user has looked that no event has told yet.
    qint64 engagement = 0;

    // What the automatic events were told of.
    qint64 isOpened = 0;
    QString applicationVersion;
    QString systemVersion;
    QString toldCrash;

    // How long the collector is left alone.
    qint64 failures = 0;
    qint64 heldFrom = 0;
    qint64 heldUntil = 0;

    // How long the clock has been steady.
    qint64 clockSeen = 0;
    qint64 clockSteadySince = 0;

    friend bool operator==(const Memory&, const Memory&) = default;
};

// What is written at once, or not at all.
struct Change {
    struct Happened {
        QString name;
        // Local, counted from 1970.
        qint64 day = 0;
        // Nothing if it only counts.
        std::optional<StoredEvent> kept;
    };

    Memory memory{};
    std::vector<Happened> events{};
    std::vector<UserProperty> properties{};
    std::map<QString, qint64> losses{};
    // What has left.
    std::vector<qint64> gone{};
    // Events from before it are too old, and so are counts of the 60 days before the day.
    std::optional<qint64> tooOld{};
    qint64 today = 0;
    // Nothing is kept any more that the engine has made by itself.
    bool forgetsAutomatic = false;
    // Of the installation that was.
    bool forgetsLosses = false;
};

// The file of all that has been measured: "usage.db" in a folder, a SQLite database with a log
// beside it, so that what is committed outlives a process that is killed at any moment. Who opens
// it holds the folder. One thread at a time.
class AnalyticsStore {
  public:
    static constexpr qint64 kMostBytes = 8LL << 20;
    static constexpr qint64 kMostProperties = 25;
    // Names beyond these are an application that makes them up.
    static constexpr qint64 kMostNames = 500;

    struct Opened {
        // Nothing if it can be neither opened nor made.
        std::unique_ptr<AnalyticsStore> store;
        // SQLite says it is corrupt.
        bool isDamaged = false;
    };
    // Opens the store of a folder, or makes it. One of an earlier version is brought up to date,
    // one of a later version is left as it is. The file never grows beyond `mostBytes`, nor the log
    // beside it much beyond half a MiB.
    [[nodiscard]] static Opened open(const std::filesystem::path& folder,
                                     qint64 mostBytes = kMostBytes);

    // As of the last write.
    [[nodiscard]] const Memory& memory() const { return memory_; }
    [[nodiscard]] std::vector<UserProperty> properties();
    [[nodiscard]] std::map<QString, qint64> losses();
    // How many events wait to leave, but not counting beyond `most`.
    [[nodiscard]] qint64 waiting(qint64 most);

    // The verbs. Writes a change. Where there is no room, the oldest events go. Events and
    // properties beyond the limits are left out, and counted as lost.
    [[nodiscard]] DatabaseOutcome write(const Change& change);
    // The events that have waited longest: no more than `most`, and no more than `mostBytes` of
    // texts and numbers, but one at least.
    [[nodiscard]] std::vector<StoredEvent> oldest(qint64 most, qsizetype mostBytes);
    // How often an event has happened, from the local day `from` on; from the beginning.
    [[nodiscard]] qint64 times(const QString& event, std::optional<qint64> from);
    // Forgets everything, where the file cannot be removed. The store is not to be used any more.
    // False if that could not be written, or if the file or its log may still hold some of it.
    [[nodiscard]] bool wipe();
    // From here on nothing waits for the disk.
    void hurry() { database_.hurry(); }

    // What is kept, for a person: an object of JSON for each row, with the name of its table. Reads
    // beside a process that writes. Nothing if there is something that cannot be read.
    [[nodiscard]] static std::optional<QByteArray> jsonLines(const std::filesystem::path& folder);

  private:
    AnalyticsStore(const std::filesystem::path& file, qint64 mostBytes);

    [[nodiscard]] DatabaseOutcome prepare();
    void readMemory();
    void apply(const Change& change);
    void add(const Change::Happened& happened);
    [[nodiscard]] bool set(const UserProperty& property);
    void writeMemory(const Memory& memory);
    void lose(const QString& reason, qint64 number);
    void keepBound();
    [[nodiscard]] qint64 removeOldest();
    [[nodiscard]] qint64 bytesInUse();

    Database database_;
    const qint64 mostBytes_;
    Memory memory_;
};

}  // namespace pellumar
