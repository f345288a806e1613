#pragma once

#include <QList>
#include <QVariant>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>

struct sqlite3;
struct sqlite3_stmt;

namespace pellumar {

// What came of work on a database.
enum class DatabaseOutcome {
    kDone,
    // Neither the disk nor the bound has room.
    kFull,
    // SQLite says that the file is corrupt, or no database.
    kDamaged,
    // It cannot be opened, read or written, or we have asked for nonsense: no reason to throw
    // anything away.
    kUnavailable,
};

// A SQLite database. The first failure is kept: what is asked of the database after it does nothing
// until somebody has taken note of it, so that callers look at the outcome once, at the end. One
// thread at a time.
class Database {
  public:
    enum class Mode { kMake, kRead };

    // Nothing is looked at yet.
    Database(const std::filesystem::path& path, Mode mode);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // What has been found out about the file.
    void fail(DatabaseOutcome outcome) { outcome_ = failed() ? outcome_ : outcome; }
    // Writes all that `work` does, or nothing of it.
    [[nodiscard]] DatabaseOutcome transact(const std::function<void()>& work);
    // What the first failure was, which is then forgotten. For work outside transact().
    [[nodiscard]] DatabaseOutcome takeOutcome();

    // A statement, whose values take the places of the question marks: numbers of 64 bits and
    // texts. How many rows it has changed; none after a failure. It is kept for the next time:
    // `sql` is a literal.
    qint64 run(const char* sql, std::initializer_list<QVariant> values = {});
    // The rows that it has, of numbers and of texts in UTF-8.
    [[nodiscard]] QList<QVariantList> rows(const char* sql,
                                           std::initializer_list<QVariant> values = {});
    // The first column of the only row; 0 if there is none.
    [[nodiscard]] qint64 number(const char* sql, std::initializer_list<QVariant> values = {}) {
        return rows(sql, values).value(0).value(0).toLongLong();
    }
    // Several, which are not kept.
    void script(const char* sql);

  private:
    [[nodiscard]] bool failed() const { return outcome_ != DatabaseOutcome::kDone; }
    void note(int result);
    [[nodiscard]] sqlite3_stmt* prepared(const char* sql);
    void bind(sqlite3_stmt* statement, int place, const QVariant& value);

    sqlite3* connection_ = nullptr;
    DatabaseOutcome outcome_ = DatabaseOutcome::kDone;
    // By where their text stands.
    std::map<const char*, sqlite3_stmt*> statements_;
};

}  // namespace pellumar
