#include "analytics/AnalyticsStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <string>
#include <system_error>

#include "analytics/AutomaticEvents.h"
#include "analytics/PrivateFolder.h"
#include "analytics/StoreSchema.h"

namespace pellumar {
namespace {

constexpr qint64 kPageBytes = 4096;
// Beyond the first share the oldest go, until the second is reached: the rest is for what is not
// events, and for the pages that removing needs itself.
constexpr qint64 kFullPercent = 90;
constexpr qint64 kRoomyPercent = 80;

// 2020 in milliseconds since 1970. No clock that was set says less.
constexpr qint64 kEarliestTime = 1'577'836'800'000;

// With what may stand beside it.
constexpr std::array<const char*, 4> kSuffixes = {"-wal", "-shm", "-journal", ""};

// What SQLite makes beside it gets its permissions. One that is there is not opened: to close it
// here would drop the locks that this process holds on it.
void makePrivate(const std::filesystem::path& file) {
    const int created =
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (created >= 0) {
        ::close(created);
    }
    namespace fs = std::filesystem;
    for (const char* suffix : kSuffixes) {
        fs::path each = file;
        each += suffix;
        // One that is not ours to change is found out when it is opened.
        std::error_code ignored;
        const fs::file_status status = fs::symlink_status(each, ignored);
        if (fs::is_regular_file(status)) {
            constexpr fs::perms kOurs = fs::perms::owner_read | fs::perms::owner_write;
            fs::permissions(each, status.permissions() & kOurs, ignored);
        }
    }
}

}  // namespace

std::filesystem::path AnalyticsStore::fileIn(const std::filesystem::path& folder) {
    return folder / "events.db";
}

bool AnalyticsStore::remove(const std::filesystem::path& folder) {
    bool removed = true;
    // The log first: it must not be taken for the next file's.
    for (const char* suffix : kSuffixes) {
        std::filesystem::path file = fileIn(folder);
        file += suffix;
        std::error_code error;
        std::filesystem::remove(file, error);
        removed = removed && !error;
    }
    return removed;
}

std::unique_ptr<AnalyticsStore> AnalyticsStore::open(const std::filesystem::path& folder,
                                                     qint64 mostBytes,
                                                     Reason reason,
                                                     const std::stop_token& ending) {
    if (!makePrivateFolder(folder)) {
        return nullptr;
    }
    const std::array reasons = {reason, Reason::kReplaced};
    for (const Reason each : reasons) {
        makePrivate(fileIn(folder));
        auto store =
            std::unique_ptr<AnalyticsStore>(new AnalyticsStore(fileIn(folder), mostBytes, ending));
        const DatabaseOutcome outcome = store->prepare(each);
        if (outcome == DatabaseOutcome::kDone) {
            return store;
        }
        store.reset();
        if (outcome != DatabaseOutcome::kDamaged || !remove(folder)) {
            break;
        }
    }
    return nullptr;
}

AnalyticsStore::AnalyticsStore(const std::filesystem::path& file,
                               qint64 mostBytes,
                               const std::stop_token& ending)
    : database_(file, ending),
      mostBytes_(mostBytes),
      events_(database_),
      counts_(database_),
      userProperties_(database_),
      sessions_(database_),
      memberships_(database_),
      losses_(database_),
      state_(database_),
      installation_(state_) {}

DatabaseOutcome AnalyticsStore::prepare(Reason reason) {
    setUp();
    const bool sound = isSound();
    if (const DatabaseOutcome outcome = database_.takeOutcome();
        outcome != DatabaseOutcome::kDone) {
        return outcome;
    }
    if (!sound) {
        return DatabaseOutcome::kDamaged;
    }
    if (const DatabaseOutcome outcome = schema::migrate(database_);
        outcome != DatabaseOutcome::kDone) {
        return outcome;
    }
    database_.begin();
    installation_.ensure();
    if (reason == Reason::kReplaced) {
        AutomaticEvents::skipFirstOpen(state_);
    }
    return database_.commit();
}

void AnalyticsStore::setUp() {
    database_.run("PRAGMA page_size = 4096");
    database_.run("PRAGMA auto_vacuum = INCREMENTAL");
    database_.run("PRAGMA journal_mode = WAL");
    // A commit may be lost when the machine stops, but not when the process does; the file is whole
    // in both cases.
    database_.run("PRAGMA synchronous = NORMAL");
    database_.run("PRAGMA wal_autocheckpoint = 128");
    database_.run("PRAGMA journal_size_limit = 524288");
    database_.run("PRAGMA cache_size = -512");
    database_.run("PRAGMA temp_store = MEMORY");
    database_.run("PRAGMA secure_delete = FAST");
    database_.run("PRAGMA trusted_schema = OFF");
    database_.run(("PRAGMA max_page_count = " + std::to_string(mostBytes_ / kPageBytes)).c_str());
}

bool AnalyticsStore::isSound() {
    return database_.text("PRAGMA quick_check(1)") == QLatin1String("ok");
}

qint64 AnalyticsStore::bytesInUse() {
    const qint64 pages = database_.number("PRAGMA page_count").value_or(0);
    const qint64 free = database_.number("PRAGMA freelist_count").value_or(0);
    return (pages - free) * kPageBytes;
}

void AnalyticsStore::keepBound() {
    if (bytesInUse() * 100 < mostBytes_ * kFullPercent) {
        return;
    }
    qint64 removed = 0;
    while (bytesInUse() * 100 > mostBytes_ * kRoomyPercent) {
        const qint64 more = events_.removeOldest();
        if (more == 0) {
            break;
        }
        removed += more;
    }
    losses_.add(loss::kNoRoom, removed);
}

void AnalyticsStore::makeRoom() {
    database_.begin();
    losses_.add(loss::kNoRoom, events_.removeOldest());
    // If there is no room even for that, the caller's next commit says so.
    static_cast<void>(database_.commit());
}

bool AnalyticsStore::wipe() {
    database_.begin();
    for (const char* table : {"events",
                              "parameters",
                              "sessions",
                              "user_properties",
                              "counts",
                              "day_counts",
                              "memberships",
                              "losses",
                              "state"}) {
        database_.run((std::string("DELETE FROM ") + table).c_str());
    }
    if (database_.commit() != DatabaseOutcome::kDone) {
        return false;
    }
    // Pages that are free and the log still hold what was.
    database_.run("PRAGMA incremental_vacuum");
    // Says 1 while a reader keeps it from its end, which is no failure.
    const bool isLogEmpty = database_.number("PRAGMA wal_checkpoint(TRUNCATE)") == 0;
    return database_.takeOutcome() == DatabaseOutcome::kDone && isLogEmpty;
}

void AnalyticsStore::forget(qint64 eventsBefore, qint64 today) {
    losses_.add(loss::kExpired, events_.removeBetween(kEarliestTime, eventsBefore));
    counts_.removeOldDays(today);
    sessions_.removeUnused();
    database_.run("PRAGMA incremental_vacuum");
}

}  // namespace pellumar
