#include "analytics/MembershipTable.h"

namespace pellumar {

std::set<QString> MembershipTable::all() {
    std::set<QString> audiences;
    Statement query = database_.statement("SELECT audience FROM memberships");
    while (query.step()) {
        audiences.insert(query.text(0));
    }
    return audiences;
}

void MembershipTable::add(const QString& audience, qint64 since) {
    database_.statement("INSERT OR IGNORE INTO memberships (audience, since) VALUES (?, ?)")
        .bind(audience)
        .bind(since)
        .run();
}

void MembershipTable::remove(const QString& audience) {
    database_.statement("DELETE FROM memberships WHERE audience = ?").bind(audience).run();
}

}  // namespace pellumar
