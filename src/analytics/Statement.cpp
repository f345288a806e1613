#include "analytics/Statement.h"

#include <sqlite3.h>

#include "analytics/Database.h"

namespace pellumar {

Statement::~Statement() {
    if (statement_ != nullptr) {
        // Says once more what step() has said.
        static_cast<void>(sqlite3_reset(statement_));
        sqlite3_clear_bindings(statement_);
    }
}

bool Statement::isUsable() const {
    return statement_ != nullptr && !database_.failed();
}

Statement& Statement::bind(qint64 value) {
    if (isUsable()) {
        database_.note(sqlite3_bind_int64(statement_, ++bound_, value));
    }
    return *this;
}

Statement& Statement::bind(double value) {
    if (isUsable()) {
        database_.note(sqlite3_bind_double(statement_, ++bound_, value));
    }
    return *this;
}

Statement& Statement::bind(const QString& value) {
    if (isUsable()) {
        const QByteArray bytes = value.toUtf8();
        database_.note(sqlite3_bind_text64(statement_,
                                           ++bound_,
                                           bytes.constData(),
                                           static_cast<sqlite3_uint64>(bytes.size()),
                                           SQLITE_TRANSIENT,
                                           SQLITE_UTF8));
    }
    return *this;
}

bool Statement::step() {
    if (!isUsable()) {
        return false;
    }
    const int result = sqlite3_step(statement_);
    database_.note(result);
    return result == SQLITE_ROW;
}

void Statement::run() {
    while (step()) {
    }
}

qint64 Statement::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement_, column);
}

QString Statement::text(int column) const {
    const auto* const bytes =
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(statement_, column)));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement_, column));
}

}  // namespace pellumar
