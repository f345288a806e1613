#pragma once

#include <set>

#include "analytics/Database.h"

namespace pellumar {

// The audiences that the user is in. Failures are the database's.
class MembershipTable {
  public:
    // `database` must outlive this.
    explicit MembershipTable(Database& database) : database_(database) {}

    [[nodiscard]] std::set<QString> all();
    // `since` in milliseconds since 1970 in UTC.
    void add(const QString& audience, qint64 since);
    void remove(const QString& audience);

  private:
    Database& database_;
};

}  // namespace pellumar
