#include "analytics/Database.h"

#include <sqlite3.h>

#include <utility>

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kBusyStep(2);

DatabaseOutcome outcomeOf(int result) {
    switch (result & 0xff) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE:
            return DatabaseOutcome::kDone;
        case SQLITE_FULL:
            return DatabaseOutcome::kFull;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return DatabaseOutcome::kBusy;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        // The schema is not the one that its version promises.
        case SQLITE_ERROR:
        case SQLITE_MISMATCH:
        case SQLITE_CONSTRAINT:
            return DatabaseOutcome::kDamaged;
        default:
            return DatabaseOutcome::kUnavailable;
    }
}

}  // namespace

Database::Database(const std::filesystem::path& path, std::stop_token ending)
    : ending_(std::move(ending)) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX |
                      SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE;
    note(sqlite3_open_v2(path.c_str(), &connection_, flags, nullptr));
    if (connection_ != nullptr) {
        sqlite3_busy_handler(connection_, waitForOthers, this);
        // The end of a process is not the time to wait for the disk: the next one goes on with the
        // log as it is.
        sqlite3_db_config(connection_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
}

Database::~Database() {
    finalizeAll();
    sqlite3_close(connection_);
}

void Database::finalizeAll() {
    for (const auto& [sql, statement] : statements_) {
        sqlite3_finalize(statement);
    }
    statements_.clear();
}

int Database::waitForOthers(void* self, int times) {
    const auto& database = *static_cast<const Database*>(self);
    const std::chrono::milliseconds patience =
        database.ending_.stop_requested() ? kLastPatience : kPatience;
    if (times * kBusyStep >= patience) {
        return 0;
    }
    sqlite3_sleep(static_cast<int>(kBusyStep.count()));
    return 1;
}

void Database::begin() {
    if (isCheckpointing_ && ending_.stop_requested()) {
        // A checkpoint waits for the disk.
        sqlite3_wal_autocheckpoint(connection_, 0);
        isCheckpointing_ = false;
    }
    run("BEGIN IMMEDIATE");
}

DatabaseOutcome Database::commit() {
    run("COMMIT");
    if (failed() && sqlite3_get_autocommit(connection_) == 0) {
        // Says why if it fails, which is no news after a failure.
        static_cast<void>(sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr));
    }
    return takeOutcome();
}

DatabaseOutcome Database::takeOutcome() {
    return std::exchange(outcome_, DatabaseOutcome::kDone);
}

bool Database::isMoved() {
    int moved = 0;
    return sqlite3_file_control(connection_, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
           moved != 0;
}

void Database::run(const char* sql) {
    if (!failed()) {
        note(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr));
    }
}

Statement Database::statement(std::string_view sql) {
    if (failed()) {
        return {*this, nullptr};
    }
    auto kept = statements_.find(sql);
    if (kept == statements_.end()) {
        sqlite3_stmt* prepared = nullptr;
        note(sqlite3_prepare_v3(connection_,
                                sql.data(),
                                static_cast<int>(sql.size()),
                                SQLITE_PREPARE_PERSISTENT,
                                &prepared,
                                nullptr));
        if (prepared == nullptr) {
            return {*this, nullptr};
        }
        kept = statements_.emplace(sql, prepared).first;
    }
    return {*this, kept->second};
}

std::optional<qint64> Database::number(std::string_view sql) {
    Statement query = statement(sql);
    return query.step() ? std::optional(query.number(0)) : std::nullopt;
}

std::optional<QString> Database::text(std::string_view sql) {
    Statement query = statement(sql);
    return query.step() ? std::optional(query.text(0)) : std::nullopt;
}

qint64 Database::changes() const {
    return sqlite3_changes64(connection_);
}

void Database::note(int result) {
    if (!failed()) {
        outcome_ = outcomeOf(result);
    }
}

}  // namespace pellumar
