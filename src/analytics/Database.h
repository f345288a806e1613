#pragma once

#include <QString>
#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>

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
// until somebody has taken note of it, so that callers look at the outcome once, at the commit. One
// thread at a time.
class Database {
  public:
    // A statement on its way, which is stepped through row by row. Reset when this goes.
    class Rows {
      public:
        ~Rows();
        Rows(const Rows&) = delete;
        Rows& operator=(const Rows&) = delete;

        // True if there is a row to read.
        [[nodiscard]] bool next();

        // Of the row, from 0.
        [[nodiscard]] qint64 number(int column) const;
        [[nodiscard]] QByteArray bytes(int column) const;
        [[nodiscard]] QString text(int column) const { return QString::fromUtf8(bytes(column)); }
        [[nodiscard]] bool isNumber(int column) const;
        [[nodiscard]] int columns() const;
        [[nodiscard]] QString name(int column) const;

      private:
        friend class Database;
        // `statement` may be null if the database has failed.
        template <typename... Values>
        Rows(Database& database, sqlite3_stmt* statement, const Values&... values)
            : database_(database), statement_(statement) {
            (bind(values), ...);
        }

        void bind(qint64 value);
        void bind(const QString& value) { bind(value.toUtf8()); }
        void bind(const QByteArray& text);

        Database& database_;
        sqlite3_stmt* statement_;
        int bound_ = 0;
    };

    enum class Mode { kMake, kRead };

    // Nothing is looked at yet.
    Database(const std::filesystem::path& path, Mode mode);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Begins to write.
    void begin() { run("BEGIN IMMEDIATE"); }
    // Rolls back if something has failed, says what, and forgets it.
    [[nodiscard]] DatabaseOutcome commit();
    // What the first failure was, which is then forgotten. For work outside begin() and commit().
    [[nodiscard]] DatabaseOutcome takeOutcome();

    // Nothing waits for the disk any more.
    void hurry();

    // Rows of a statement that is kept for the next time, so `sql` must live as long as this;
    // values take the places of the question marks.
    template <typename... Values>
    [[nodiscard]] Rows query(std::string_view sql, const Values&... values) {
        return {*this, prepared(sql), values...};
    }
    // A statement without rows. How many it has changed.
    template <typename... Values>
    qint64 execute(std::string_view sql, const Values&... values) {
        Rows rows = query(sql, values...);
        while (rows.next()) {
        }
        return changes();
    }
    // The first column of the first row; 0 if there is none.
    template <typename... Values>
    [[nodiscard]] qint64 number(std::string_view sql, const Values&... values) {
        Rows rows = query(sql, values...);
        return rows.next() ? rows.number(0) : 0;
    }
    // Statements that are not kept.
    void run(const char* sql);

  private:
    [[nodiscard]] bool failed() const { return outcome_ != DatabaseOutcome::kDone; }
    // Null after a failure.
    [[nodiscard]] sqlite3_stmt* prepared(std::string_view sql);
    // Of the last statement; none after a failure.
    [[nodiscard]] qint64 changes() const;
    void note(int result);

    sqlite3* connection_ = nullptr;
    DatabaseOutcome outcome_ = DatabaseOutcome::kDone;
    std::map<std::string_view, sqlite3_stmt*> statements_;
};

}  // namespace pellumar
