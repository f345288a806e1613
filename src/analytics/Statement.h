#pragma once

#include <QString>
#include <QtGlobal>

struct sqlite3;
struct sqlite3_stmt;

namespace pellumar {

class Database;

// A statement of SQL on its way: values are bound in the order of the question marks, then rows are
// stepped through. Reset when this goes. Does nothing at all once the database has failed.
class Statement {
  public:
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(qint64 value);
    Statement& bind(double value);
    Statement& bind(const QString& value);

    // True if there is a row to read.
    [[nodiscard]] bool step();
    // For a statement without rows.
    void run();

    // Of the row, from 0.
    [[nodiscard]] qint64 number(int column) const;
    [[nodiscard]] double real(int column) const;
    [[nodiscard]] QString text(int column) const;

  private:
    friend class Database;

    // `statement` may be null if the database has failed.
    Statement(Database& database, sqlite3_stmt* statement)
        : database_(database), statement_(statement) {}

    [[nodiscard]] bool isUsable() const;

    Database& database_;
    sqlite3_stmt* statement_;
    int bound_ = 0;
};

}  // namespace pellumar
