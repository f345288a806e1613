#pragma once

#include <QString>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string_view>

#include "analytics/Statement.h"

namespace pellumar {

// What came of work on a database.
enum class DatabaseOutcome {
    kDone,
    // Neither the disk nor the bound has room.
    kFull,
    // Another process is at it.
    kBusy,
    // The file is no database, or no longer one.
    kDamaged,
    // It cannot be opened, read or written, for any other reason.
    kUnavailable,
};

// A SQLite database. The first failure is kept: what is asked of the database after it does nothing
// until somebody has taken note of it, so that callers look at the outcome once, at the commit. One
// thread at a time.
class Database {
  public:
    // While another process writes, so long is waited for it: the second is for when the process
    // is about to end.
    static constexpr std::chrono::milliseconds kPatience{500};
    static constexpr std::chrono::milliseconds kLastPatience{20};

    // `path` is made if there is nothing. Nothing is looked at yet. When `ending` is requested,
    // nothing waits for the disk any more.
    explicit Database(const std::filesystem::path& path, std::stop_token ending = {});
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Begins to write, as the only one.
    void begin();
    // Rolls back if something has failed, says what, and forgets it.
    [[nodiscard]] DatabaseOutcome commit();
    // What the first failure was, which is then forgotten. For work outside begin() and commit().
    [[nodiscard]] DatabaseOutcome takeOutcome();

    [[nodiscard]] bool failed() const { return outcome_ != DatabaseOutcome::kDone; }

    // Whether the file at the path is no longer the one that was opened: another process has
    // removed it.
    [[nodiscard]] bool isMoved();

    // Runs statements that yield nothing, outside the kept ones.
    void run(const char* sql);
    // A statement that is kept for the next time. `sql` must live as long as this.
    [[nodiscard]] Statement statement(std::string_view sql);
    // The first column of the first row; nothing if there is none, or after a failure.
    [[nodiscard]] std::optional<qint64> number(std::string_view sql);
    [[nodiscard]] std::optional<QString> text(std::string_view sql);

    // Rows that the last statement changed.
    [[nodiscard]] qint64 changes() const;

  private:
    friend class Statement;

    // For SQLite: whether to try again after so many times.
    static int waitForOthers(void* self, int times);
    void note(int result);
    void finalizeAll();

    const std::stop_token ending_;
    sqlite3* connection_ = nullptr;
    bool isCheckpointing_ = true;
    DatabaseOutcome outcome_ = DatabaseOutcome::kDone;
    std::map<std::string_view, sqlite3_stmt*> statements_;
};

}  // namespace pellumar
