#include "analytics/UserPropertyTable.h"

#include "analytics/EventNaming.h"

namespace pellumar {

bool UserPropertyTable::set(const UserProperty& property) {
    if (property.value.isEmpty()) {
        database_.statement("DELETE FROM user_properties WHERE name = ?").bind(property.name).run();
        return true;
    }
    const QString before = value(property.name);
    if (before == property.value) {
        database_
            .statement(
                "UPDATE user_properties SET advertising = ? WHERE name = ? AND advertising <> ?")
            .bind(qint64{property.advertising})
            .bind(property.name)
            .bind(qint64{property.advertising})
            .run();
        return true;
    }
    // Those of audiences are not the application's, and are as many as there are audiences.
    Statement count =
        database_.statement("SELECT count(*) FROM user_properties WHERE substr(name, 1, ?) <> ?");
    count.bind(kReservedPrefix.size()).bind(kReservedPrefix);
    const bool full = count.step() && count.number(0) >= kMostProperties;
    if (full && before.isEmpty() && !property.name.startsWith(kReservedPrefix)) {
        return false;
    }
    database_
        .statement(
            "INSERT OR REPLACE INTO user_properties (name, value, time, advertising) "
            "VALUES (?, ?, ?, ?)")
        .bind(property.name)
        .bind(property.value)
        .bind(property.time)
        .bind(qint64{property.advertising})
        .run();
    return true;
}

QString UserPropertyTable::value(const QString& name) {
    Statement query = database_.statement("SELECT value FROM user_properties WHERE name = ?");
    return query.bind(name).step() ? query.text(0) : QString();
}

std::vector<UserProperty> UserPropertyTable::all() {
    std::vector<UserProperty> properties;
    Statement query = database_.statement(
        "SELECT name, value, time, advertising FROM user_properties ORDER BY name");
    while (query.step()) {
        properties.push_back({.name = query.text(0),
                              .value = query.text(1),
                              .time = query.number(2),
                              .advertising = query.number(3) != 0});
    }
    return properties;
}

}  // namespace pellumar
