#include "analytics/SessionTable.h"

namespace pellumar {

Session SessionTable::last() {
    Statement query = database_.statement(
        "SELECT number, uid, started, last_seen FROM sessions ORDER BY number DESC LIMIT 1");
    if (!query.step()) {
        return {};
    }
    return {.number = query.number(0),
            .uid = query.text(1),
            .started = query.number(2),
            .lastSeen = query.number(3)};
}

void SessionTable::add(const Session& session) {
    database_
        .statement(
            "INSERT INTO sessions (number, uid, started, last_seen, engagement, "
            "  unreported_engagement) VALUES (?, ?, ?, ?, 0, 0)")
        .bind(session.number)
        .bind(session.uid)
        .bind(session.started)
        .bind(session.lastSeen)
        .run();
}

void SessionTable::extend(const Session& session, qint64 engagement) {
    database_
        .statement(
            "UPDATE sessions SET last_seen = ?, engagement = engagement + ?, "
            "  unreported_engagement = unreported_engagement + ? WHERE number = ?")
        .bind(session.lastSeen)
        .bind(engagement)
        .bind(engagement)
        .bind(session.number)
        .run();
}

qint64 SessionTable::takeUnreported(qint64 session) {
    Statement query =
        database_.statement("SELECT unreported_engagement FROM sessions WHERE number = ?");
    const qint64 unreported = query.bind(session).step() ? query.number(0) : 0;
    if (unreported > 0) {
        database_.statement("UPDATE sessions SET unreported_engagement = 0 WHERE number = ?")
            .bind(session)
            .run();
    }
    return unreported;
}

void SessionTable::removeUnused() {
    database_
        .statement(
            "DELETE FROM sessions WHERE number < (SELECT max(number) FROM sessions) "
            "AND number NOT IN (SELECT session FROM events)")
        .run();
}

}  // namespace pellumar
