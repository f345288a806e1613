#pragma once

#include <map>

#include "analytics/Database.h"

namespace pellumar {

// What of the measurements was lost, by reason, since the store was made: a receiver can tell from
// it how much it sees. Failures are the database's.
class LossTable {
  public:
    // `database` must outlive this.
    explicit LossTable(Database& database) : database_(database) {}

    void add(const QString& reason, qint64 number);
    [[nodiscard]] std::map<QString, qint64> all();

  private:
    Database& database_;
};

// The reasons, as they leave the machine.
namespace loss {
// The application was faster than the worker.
inline const QString kQueueFull = QStringLiteral("queue_full");
// An event, a parameter or a property that broke a limit.
inline const QString kInvalid = QStringLiteral("invalid");
// Left out by sampling.
inline const QString kSampledOut = QStringLiteral("sampled_out");
// The oldest, for want of room.
inline const QString kNoRoom = QStringLiteral("no_room");
// Too old.
inline const QString kExpired = QStringLiteral("expired");
// The collector did not want them.
inline const QString kRefused = QStringLiteral("refused");
}  // namespace loss

}  // namespace pellumar
