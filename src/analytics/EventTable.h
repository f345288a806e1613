#pragma once

#include <vector>

#include "analytics/Database.h"
#include "analytics/Event.h"

namespace pellumar {

// The events that have not left yet, oldest first. Failures are the database's.
class EventTable {
  public:
    // `database` must outlive this.
    explicit EventTable(Database& database) : database_(database) {}

    // The row is given by the table; `sessionUid` is the session's.
    void add(const StoredEvent& event);

    // How many there are, but not counting beyond `most`.
    [[nodiscard]] qint64 count(qint64 most);

    // The oldest ones: no more than `most`, and no more than `mostBytes` of texts and numbers, but
    // one at least.
    [[nodiscard]] std::vector<StoredEvent> oldest(qint64 most, qsizetype mostBytes);

    void remove(const std::vector<qint64>& rows);

    // Removes a tenth of what there is, the oldest. Returns how many.
    qint64 removeOldest();
    // Removes what was recorded between two moments, the second not included. Returns how many.
    qint64 removeBetween(qint64 from, qint64 to);

  private:
    void readParameters(StoredEvent& event);

    Database& database_;
};

}  // namespace pellumar
