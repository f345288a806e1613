#pragma once

#include "analytics/Database.h"

namespace pellumar::schema {

// The tables as this program knows them; kept in the file as PRAGMA user_version.
inline constexpr qint64 kVersion = 2;

// Brings the tables from the version in the file to this one, all or nothing. A version that is
// higher than this one is a damaged file: there is nothing in it worth guessing at.
[[nodiscard]] DatabaseOutcome migrate(Database& database);

}  // namespace pellumar::schema
