#include "analytics/SessionTable.h"

namespace pellumar {

Session SessionTable::last() {
    Statement query = database_.statement(
        "SELECT number, uid, started, last_seen, engagement, unreported_engagement "
        "FROM sessions ORDER BY number DESC LIMIT 1");
    if (!query.step()) {
        return {};
    }
    return {.number = query.number(0),
            .uid = query.text(1),
            .started = query.number(2),
            .lastSeen = query.number(3),
            .engagement = query.number(4),
            .unreportedEngagement = query.number(5)};
}

void SessionTable::save(const Session& session) {
    database_
        .statement(
            "INSERT OR REPLACE INTO sessions (number, uid, started, last_seen, engagement, "
            "  unreported_engagement) VALUES (?, ?, ?, ?, ?, ?)")
        .bind(session.number)
        .bind(session.uid)
        .bind(session.started)
        .bind(session.lastSeen)
        .bind(session.engagement)
        .bind(session.unreportedEngagement)
        .run();
}

void SessionTable::removeUnused() {
    database_
        .statement(
            "DELETE FROM sessions WHERE number < (SELECT max(number) FROM sessions) "
            "AND number NOT IN (SELECT session FROM events)")
        .run();
}

}  // namespace pellumar
