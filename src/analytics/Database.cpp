#include "analytics/Database.h"

#include <sqlite3.h>

#include <utility>

namespace pellumar {
namespace {

// Only who looks at what is kept from outside is waited for.
constexpr int kPatienceMilliseconds = 20;

DatabaseOutcome outcomeOf(int result) {
    switch (result & 0xff) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE:
            return DatabaseOutcome::kDone;
        case SQLITE_FULL:
            return DatabaseOutcome::kFull;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return DatabaseOutcome::kDamaged;
        default:
            return DatabaseOutcome::kUnavailable;
    }
}

}  // namespace

Database::Rows::~Rows() {
    if (statement_ != nullptr) {
        // Says once more what the last step has said.
        static_cast<void>(sqlite3_reset(statement_));
        sqlite3_clear_bindings(statement_);
    }
}

void Database::Rows::bind(qint64 value) {
    if (statement_ != nullptr) {
        database_.note(sqlite3_bind_int64(statement_, ++bound_, value));
    }
}

void Database::Rows::bind(const QByteArray& text) {
    if (statement_ != nullptr) {
        database_.note(sqlite3_bind_text64(statement_,
                                           ++bound_,
                                           text.constData(),
                                           static_cast<sqlite3_uint64>(text.size()),
                                           SQLITE_TRANSIENT,
                                           SQLITE_UTF8));
    }
}

bool Database::Rows::next() {
    if (statement_ == nullptr || database_.failed()) {
        return false;
    }
    const int result = sqlite3_step(statement_);
    database_.note(result);
    return result == SQLITE_ROW;
}

qint64 Database::Rows::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

QByteArray Database::Rows::bytes(int column) const {
    const void* const bytes = sqlite3_column_text(statement_, column);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(statement_, column)};
}

bool Database::Rows::isNumber(int column) const {
    return sqlite3_column_type(statement_, column) == SQLITE_INTEGER;
}

int Database::Rows::columns() const {
    return statement_ == nullptr ? 0 : sqlite3_column_count(statement_);
}

QString Database::Rows::name(int column) const {
    return QString::fromUtf8(sqlite3_column_name(statement_, column));
}

Database::Database(const std::filesystem::path& path, Mode mode) {
    const int access =
        mode == Mode::kMake ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
    const int flags = access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE;
    note(sqlite3_open_v2(path.c_str(), &connection_, flags, nullptr));
    if (connection_ != nullptr) {
        sqlite3_busy_timeout(connection_, kPatienceMilliseconds);
        // The end of a process is not the time to wait for the disk: the next one goes on with the
        // log as it is.
        sqlite3_db_config(connection_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
}

Database::~Database() {
    for (const auto& [sql, statement] : statements_) {
        sqlite3_finalize(statement);
    }
    sqlite3_close(connection_);
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

void Database::hurry() {
    // A checkpoint waits for the disk.
    sqlite3_wal_autocheckpoint(connection_, 0);
}

void Database::run(const char* sql) {
    if (!failed()) {
        note(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr));
    }
}

sqlite3_stmt* Database::prepared(std::string_view sql) {
    if (failed()) {
        return nullptr;
    }
    const auto kept = statements_.find(sql);
    if (kept != statements_.end()) {
        return kept->second;
    }
    sqlite3_stmt* made = nullptr;
    note(sqlite3_prepare_v3(connection_,
                            sql.data(),
                            static_cast<int>(sql.size()),
                            SQLITE_PREPARE_PERSISTENT,
                            &made,
                            nullptr));
    if (made != nullptr) {
        statements_.emplace(sql, made);
    }
    return made;
}

qint64 Database::changes() const {
    return failed() ? 0 : sqlite3_changes64(connection_);
}

void Database::note(int result) {
    if (!failed()) {
        outcome_ = outcomeOf(result);
    }
}

}  // namespace pellumar
