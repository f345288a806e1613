#include "analytics/StoreSchema.h"

#include <array>
#include <string>

namespace pellumar::schema {
namespace {

// What brings version N to N + 1. A step that has been released is never changed.
constexpr std::array<const char*, kVersion> kSteps = {
    // The events that have not left, and what they stand in.
    "CREATE TABLE state (key TEXT PRIMARY KEY, value) WITHOUT ROWID;"
    "CREATE TABLE sessions ("
    "  number INTEGER PRIMARY KEY, uid TEXT NOT NULL, started INTEGER NOT NULL,"
    "  last_seen INTEGER NOT NULL, engagement INTEGER NOT NULL,"
    "  unreported_engagement INTEGER NOT NULL);"
    "CREATE TABLE events ("
    "  id INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, name TEXT NOT NULL,"
    "  time INTEGER NOT NULL, session INTEGER NOT NULL, consent INTEGER NOT NULL,"
    "  dropped_parameters INTEGER NOT NULL);"
    "CREATE TABLE parameters ("
    "  event INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL, value NOT NULL,"
    "  PRIMARY KEY (event, name)) WITHOUT ROWID;"
    "CREATE TABLE user_properties ("
    "  name TEXT PRIMARY KEY, value TEXT NOT NULL, time INTEGER NOT NULL,"
    "  advertising INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;"
    "CREATE TABLE counts ("
    "  name TEXT PRIMARY KEY, total INTEGER NOT NULL, first INTEGER NOT NULL,"
    "  last INTEGER NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE day_counts ("
    "  name TEXT NOT NULL, day INTEGER NOT NULL, total INTEGER NOT NULL,"
    "  PRIMARY KEY (name, day)) WITHOUT ROWID;",
    // Audiences, and what was lost on the way.
    "CREATE TABLE memberships (audience TEXT PRIMARY KEY, since INTEGER NOT NULL) WITHOUT ROWID;"
    "CREATE TABLE losses (reason TEXT PRIMARY KEY, total INTEGER NOT NULL) WITHOUT ROWID;",
};

}  // namespace

DatabaseOutcome migrate(Database& database) {
    database.begin();
    const qint64 version = database.number("PRAGMA user_version").value_or(kVersion);
    const bool isKnown = version >= 0 && version <= kVersion;
    if (isKnown && version < kVersion) {
        for (auto step = static_cast<std::size_t>(version); step < kSteps.size(); ++step) {
            database.run(kSteps.at(step));
        }
        database.run(("PRAGMA user_version = " + std::to_string(kVersion)).c_str());
    }
    const DatabaseOutcome outcome = database.commit();
    return isKnown ? outcome : DatabaseOutcome::kDamaged;
}

}  // namespace pellumar::schema
