#include "analytics/CountTable.h"

namespace pellumar {

bool CountTable::add(const QString& name, qint64 time, qint64 day) {
    database_.statement("UPDATE counts SET total = total + 1, last = ? WHERE name = ?")
        .bind(time)
        .bind(name)
        .run();
    if (!database_.failed() && database_.changes() == 0) {
        if (database_.number("SELECT count(*) FROM counts").value_or(0) >= kMostNames) {
            return false;
        }
        database_.statement("INSERT INTO counts (name, total, first, last) VALUES (?, 1, ?, ?)")
            .bind(name)
            .bind(time)
            .bind(time)
            .run();
    }
    database_
        .statement(
            "INSERT INTO day_counts (name, day, total) VALUES (?, ?, 1) "
            "ON CONFLICT DO UPDATE SET total = total + 1")
        .bind(name)
        .bind(day)
        .run();
    return true;
}

qint64 CountTable::total(const QString& name) {
    Statement query = database_.statement("SELECT total FROM counts WHERE name = ?");
    return query.bind(name).step() ? query.number(0) : 0;
}

qint64 CountTable::between(const QString& name, qint64 from, qint64 to) {
    Statement query = database_.statement(
        "SELECT coalesce(sum(total), 0) FROM day_counts WHERE name = ? AND day BETWEEN ? AND ?");
    return query.bind(name).bind(from).bind(to).step() ? query.number(0) : 0;
}

void CountTable::removeOldDays(qint64 today) {
    database_.statement("DELETE FROM day_counts WHERE day <= ?").bind(today - kMostDays).run();
}

}  // namespace pellumar
