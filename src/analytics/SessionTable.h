#pragma once

#include "analytics/Database.h"
#include "analytics/SessionTracker.h"

namespace pellumar {

// The sessions that events still stand in, and the last one. Failures are the database's.
class SessionTable {
  public:
    // `database` must outlive this.
    explicit SessionTable(Database& database) : database_(database) {}

    // One with the number 0 if there has been none.
    [[nodiscard]] Session last();
    void save(const Session& session);
    // Removes those of which no event is left, but not the last one.
    void removeUnused();

  private:
    Database& database_;
};

}  // namespace pellumar
