#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>

namespace pellumar {

// The measurement engine as the application uses it. All operations may be called from any thread,
// return at once and cannot fail.
class FIRAnalytics {
  public:
    virtual ~FIRAnalytics() = default;

    // Records an event. An event without parameters has none at all, which is not an empty map.
    virtual void logEventWithName(const QString& name,
                                  const std::optional<QVariantMap>& parameters) = 0;

    // The most of a user property's value that is kept, measured by textLength.
    static constexpr qsizetype kMostUserPropertyText = 36;

    // Sets a property of the user; a later value replaces an earlier one.
    virtual void setUserPropertyString(const QString& value, const QString& forName) = 0;
};

}  // namespace pellumar
