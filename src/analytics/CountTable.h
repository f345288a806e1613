#pragma once

#include "analytics/Database.h"

namespace pellumar {

// How often each event has happened: ever, and on each of the last days. Exact, also for events of
// which only a sample is kept. Failures are the database's.
class CountTable {
  public:
    // Days are forgotten after this.
    static constexpr qint64 kMostDays = 60;
    // Names beyond these are an application that makes them up.
    static constexpr qint64 kMostNames = 500;

    // `database` must outlive this.
    explicit CountTable(Database& database) : database_(database) {}

    // One more, at a moment of the wall clock on a local day. False, and nothing is counted, if the
    // name is one too many.
    [[nodiscard]] bool add(const QString& name, qint64 time, qint64 day);

    [[nodiscard]] qint64 total(const QString& name);
    // From the day `from` to the day `to`, both included.
    [[nodiscard]] qint64 between(const QString& name, qint64 from, qint64 to);

    // Forgets the days too long before `today`.
    void removeOldDays(qint64 today);

  private:
    Database& database_;
};

}  // namespace pellumar
