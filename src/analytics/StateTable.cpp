#include "analytics/StateTable.h"

namespace pellumar {
namespace {

constexpr std::string_view kSelect = "SELECT value FROM state WHERE key = ?";
constexpr std::string_view kInsert = "INSERT OR REPLACE INTO state (key, value) VALUES (?, ?)";

}  // namespace

std::optional<QString> StateTable::text(const QString& key) {
    Statement query = database_.statement(kSelect);
    return query.bind(key).step() ? std::optional(query.text(0)) : std::nullopt;
}

std::optional<qint64> StateTable::number(const QString& key) {
    Statement query = database_.statement(kSelect);
    return query.bind(key).step() ? std::optional(query.number(0)) : std::nullopt;
}

void StateTable::set(const QString& key, const QString& value) {
    database_.statement(kInsert).bind(key).bind(value).run();
}

void StateTable::set(const QString& key, qint64 value) {
    database_.statement(kInsert).bind(key).bind(value).run();
}

void StateTable::remove(const QString& key) {
    database_.statement("DELETE FROM state WHERE key = ?").bind(key).run();
}

}  // namespace pellumar
