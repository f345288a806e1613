#pragma once

#include <optional>

#include "analytics/Database.h"

namespace pellumar {

// Single values that outlive the process. Failures are the database's.
class StateTable {
  public:
    // `database` must outlive this.
    explicit StateTable(Database& database) : database_(database) {}

    // Nothing if there is none.
    [[nodiscard]] std::optional<QString> text(const QString& key);
    [[nodiscard]] std::optional<qint64> number(const QString& key);
    void set(const QString& key, const QString& value);
    void set(const QString& key, qint64 value);
    void remove(const QString& key);

  private:
    Database& database_;
};

}  // namespace pellumar
