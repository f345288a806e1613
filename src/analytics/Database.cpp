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

QVariant column(sqlite3_stmt* statement, int i) {
    if (sqlite3_column_type(statement, i) == SQLITE_INTEGER) {
        return qint64{sqlite3_column_int64(statement, i)};
    }
    const void* const text = sqlite3_column_text(statement, i);
    return QByteArray(static_cast<const char*>(text), sqlite3_column_bytes(statement, i));
}

}  // namespace

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

DatabaseOutcome Database::transact(const std::function<void()>& work) {
    script("BEGIN IMMEDIATE");
    work();
    script("COMMIT");
    if (failed() && sqlite3_get_autocommit(connection_) == 0) {
        // Says why if it fails, which is no news after a failure.
        static_cast<void>(sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr));
    }
    return takeOutcome();
}

DatabaseOutcome Database::takeOutcome() {
    return std::exchange(outcome_, DatabaseOutcome::kDone);
}

qint64 Database::run(const char* sql, std::initializer_list<QVariant> values) {
    static_cast<void>(rows(sql, values));
    return failed() ? 0 : sqlite3_changes64(connection_);
}

QList<QVariantList> Database::rows(const char* sql, std::initializer_list<QVariant> values) {
    sqlite3_stmt* const statement = prepared(sql);
    int place = 0;
    for (const QVariant& value : values) {
        bind(statement, ++place, value);
    }
    QList<QVariantList> rows;
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW && !failed()) {
        result = sqlite3_step(statement);
        note(result);
        if (result == SQLITE_ROW) {
            QVariantList& row = rows.emplaceBack();
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                row.append(column(statement, i));
            }
        }
    }
    if (statement != nullptr) {
        // Says once more what the last step has said.
        static_cast<void>(sqlite3_reset(statement));
        sqlite3_clear_bindings(statement);
    }
    return rows;
}

void Database::script(const char* sql) {
    if (!failed()) {
        note(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr));
    }
}

sqlite3_stmt* Database::prepared(const char* sql) {
    sqlite3_stmt*& statement = statements_[sql];
    if (statement == nullptr && !failed()) {
        note(sqlite3_prepare_v3(
            connection_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    }
    return statement;
}

void Database::bind(sqlite3_stmt* statement, int place, const QVariant& value) {
    if (failed()) {
        return;
    }
    if (value.typeId() == QMetaType::LongLong) {
        note(sqlite3_bind_int64(statement, place, value.toLongLong()));
        return;
    }
    const QByteArray text = value.toByteArray();
    note(sqlite3_bind_text(
        statement, place, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
}

void Database::note(int result) {
    fail(outcomeOf(result));
}

}  // namespace pellumar
