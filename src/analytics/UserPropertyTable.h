#pragma once

#include <optional>
#include <vector>

#include "analytics/Database.h"

namespace pellumar {

struct UserProperty {
    QString name;
    QString value;
    // When it was set to this value, in milliseconds since 1970 in UTC.
    qint64 time = 0;
    // Found out for advertising.
    bool advertising = false;
};

// The properties of the user as they stand. Failures are the database's.
class UserPropertyTable {
  public:
    static constexpr qint64 kMostProperties = 25;

    // `database` must outlive this.
    explicit UserPropertyTable(Database& database) : database_(database) {}

    // Keeps the time if the value is the one that stands; an empty value removes the property.
    // Never one too many: then it is false, and nothing is set.
    [[nodiscard]] bool set(const UserProperty& property);
    // An empty text if there is none.
    [[nodiscard]] QString value(const QString& name);
    // In the order of their names.
    [[nodiscard]] std::vector<UserProperty> all();

  private:
    Database& database_;
};

}  // namespace pellumar
