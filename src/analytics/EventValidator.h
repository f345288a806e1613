#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>

#include "analytics/Event.h"
#include "platform/FIRAnalytics.h"

namespace pellumar {

// Why something was dropped or cut. The numbers leave the machine and keep their meaning.
enum class MeasurementError {
    kNone = 0,
    kEventName = 1,
    kReservedEventName = 2,
    kParameterName = 3,
    kReservedParameterName = 4,
    kTooManyParameters = 5,
    kParameterTextCut = 6,
    kParameterType = 7,
    kPropertyName = 8,
    kReservedPropertyName = 9,
    kPropertyValueCut = 10,
};

// Holds what the application says to the limits, and copies it, so that what is kept in memory is
// small and nobody else's. A name is a letter of ASCII, then letters, digits and underscores.
// Lengths are those of TextLength.h.
namespace validation {

inline constexpr qsizetype kMostNameLength = 40;
inline constexpr std::size_t kMostParameters = 25;
inline constexpr qsizetype kMostTextLength = 100;
inline constexpr qsizetype kMostPropertyNameLength = 24;
inline constexpr qsizetype kMostPropertyValueLength = FIRAnalytics::kMostUserPropertyText;

struct CheckedEvent {
    // Nothing if the name is not allowed.
    std::optional<Event> event;
    // The first thing that was wrong; with an event, it is in its error parameter as well.
    MeasurementError error = MeasurementError::kNone;
};

// Keeps the first parameters in the order of their names; drops those that are wrong, cuts long
// texts. Values are truth values, whole numbers of at most 64 bits with a sign, finite numbers and
// texts.
[[nodiscard]] CheckedEvent checkEvent(const QString& name, const QVariantMap& parameters);

struct CheckedProperty {
    // Nothing if the name is not allowed.
    std::optional<UserProperty> property;
    MeasurementError error = MeasurementError::kNone;
};

[[nodiscard]] CheckedProperty checkUserProperty(const QString& name, const QString& value);

}  // namespace validation
}  // namespace pellumar
