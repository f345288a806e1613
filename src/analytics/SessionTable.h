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
    // One that begins.
    void add(const Session& session);
    // It is going on: `engagement` milliseconds more, which no event has told yet. Other processes
    // may add theirs.
    void extend(const Session& session, qint64 engagement);
    // What no event has told, by whichever process; it is told now.
    [[nodiscard]] qint64 takeUnreported(qint64 session);
    // Removes those of which no event is left, but not the last one.
    void removeUnused();

  private:
    Database& database_;
};

}  // namespace pellumar
