#include "analytics/LossTable.h"

namespace pellumar {

void LossTable::add(const QString& reason, qint64 number) {
    if (number <= 0) {
        return;
    }
    database_
        .statement(
            "INSERT INTO losses (reason, total) VALUES (?, ?) "
            "ON CONFLICT DO UPDATE SET total = total + excluded.total")
        .bind(reason)
        .bind(number)
        .run();
}

std::map<QString, qint64> LossTable::all() {
    std::map<QString, qint64> losses;
    Statement query = database_.statement("SELECT reason, total FROM losses");
    while (query.step()) {
        losses.emplace(query.text(0), query.number(1));
    }
    return losses;
}

}  // namespace pellumar
