#include "analytics/EventTable.h"

#include <algorithm>
#include <utility>

namespace pellumar {
namespace {

// As the column "type" has them.
const QString kBoolType = QStringLiteral("b");
const QString kIntegerType = QStringLiteral("i");
const QString kDoubleType = QStringLiteral("d");
const QString kTextType = QStringLiteral("t");

// What an event takes beside its texts, in a batch.
constexpr qsizetype kBytesAround = 400;
constexpr qsizetype kBytesAroundParameter = 50;

struct ParameterBinder {
    Statement& statement;

    void operator()(bool value) const { statement.bind(kBoolType).bind(qint64{value}); }
    void operator()(qint64 value) const { statement.bind(kIntegerType).bind(value); }
    void operator()(double value) const { statement.bind(kDoubleType).bind(value); }
    void operator()(const QString& value) const { statement.bind(kTextType).bind(value); }
};

ParameterValue readValue(const Statement& row) {
    const QString type = row.text(1);
    if (type == kBoolType) {
        return row.number(2) != 0;
    }
    if (type == kIntegerType) {
        return row.number(2);
    }
    if (type == kDoubleType) {
        return row.real(2);
    }
    return row.text(2);
}

qsizetype bytesOf(const Event& event) {
    qsizetype bytes = kBytesAround + event.name.size();
    for (const EventParameter& parameter : event.parameters) {
        const auto* const text = std::get_if<QString>(&parameter.value);
        bytes += kBytesAroundParameter + parameter.name.size() +
                 (text != nullptr ? 3 * text->size() : 0);
    }
    return bytes;
}

}  // namespace

void EventTable::add(const StoredEvent& event) {
    database_
        .statement(
            "INSERT INTO events (uid, name, time, session, consent, dropped_parameters) "
            "VALUES (?, ?, ?, ?, ?, ?)")
        .bind(event.uid)
        .bind(event.event.name)
        .bind(event.time)
        .bind(event.sessionNumber)
        .bind(event.consent.packed())
        .bind(qint64{event.event.droppedParameters})
        .run();
    if (event.event.parameters.empty()) {
        return;
    }
    const qint64 row = database_.number("SELECT last_insert_rowid()").value_or(0);
    for (const EventParameter& parameter : event.event.parameters) {
        Statement insert = database_.statement(
            "INSERT INTO parameters (event, name, type, value) VALUES (?, ?, ?, ?)");
        insert.bind(row).bind(parameter.name);
        std::visit(ParameterBinder{insert}, parameter.value);
        insert.run();
    }
}

qint64 EventTable::count(qint64 most) {
    Statement query = database_.statement("SELECT count(*) FROM (SELECT 1 FROM events LIMIT ?)");
    return query.bind(most).step() ? query.number(0) : 0;
}

std::vector<StoredEvent> EventTable::oldest(qint64 most, qsizetype mostBytes) {
    std::vector<StoredEvent> events;
    qsizetype bytes = 0;
    Statement query = database_.statement(
        "SELECT events.id, events.uid, events.name, time, session, consent, dropped_parameters, "
        "  coalesce(sessions.uid, '') "
        "FROM events LEFT JOIN sessions ON sessions.number = session ORDER BY events.id LIMIT ?");
    query.bind(most);
    while (query.step()) {
        StoredEvent event{
            .row = query.number(0),
            .uid = query.text(1),
            .time = query.number(3),
            .sessionNumber = query.number(4),
            .sessionUid = query.text(7),
            .consent = Consent::unpacked(query.number(5)),
            .event = {.name = query.text(2),
                      .parameters = {},
                      .droppedParameters = static_cast<int>(query.number(6))},
        };
        readParameters(event);
        bytes += bytesOf(event.event);
        if (bytes > mostBytes && !events.empty()) {
            break;
        }
        events.push_back(std::move(event));
    }
    return events;
}

void EventTable::readParameters(StoredEvent& event) {
    Statement query =
        database_.statement("SELECT name, type, value FROM parameters WHERE event = ?");
    query.bind(event.row);
    while (query.step()) {
        event.event.parameters.push_back({.name = query.text(0), .value = readValue(query)});
    }
}

void EventTable::remove(const std::vector<qint64>& rows) {
    for (const qint64 row : rows) {
        database_.statement("DELETE FROM parameters WHERE event = ?").bind(row).run();
        database_.statement("DELETE FROM events WHERE id = ?").bind(row).run();
    }
}

qint64 EventTable::removeOldest() {
    // Rows have no gaps but where a batch has left, so the span tells the number well enough.
    const qint64 first = database_.number("SELECT min(id) FROM events").value_or(0);
    const qint64 last = database_.number("SELECT max(id) FROM events").value_or(0);
    const qint64 until = first + std::max<qint64>(1, (last - first + 1) / 10);
    database_.statement("DELETE FROM parameters WHERE event < ?").bind(until).run();
    database_.statement("DELETE FROM events WHERE id < ?").bind(until).run();
    return database_.failed() ? 0 : database_.changes();
}

qint64 EventTable::removeBetween(qint64 from, qint64 to) {
    database_
        .statement(
            "DELETE FROM parameters WHERE event IN "
            "(SELECT id FROM events WHERE time >= ? AND time < ?)")
        .bind(from)
        .bind(to)
        .run();
    database_.statement("DELETE FROM events WHERE time >= ? AND time < ?")
        .bind(from)
        .bind(to)
        .run();
    return database_.failed() ? 0 : database_.changes();
}

}  // namespace pellumar
