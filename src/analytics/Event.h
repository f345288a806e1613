#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "platform/FIRAnalytics.h"

namespace pellumar {

// Names of our own in what is measured. The application's may not begin with this.
inline const QString kReservedPrefix = QStringLiteral("pz_");
// The user property that shows membership of an audience is this and the audience's name.
inline const QString kAudiencePrefix = QStringLiteral("pz_in_");

// What the application says, held to the limits and copied, so that what is kept in memory is small
// and nobody else's. A name is a letter of ASCII, then letters, digits and underscores. Lengths are
// those of TextLength.h.
template <typename Value>
struct Checked {
    // Nothing if it is not allowed.
    std::optional<Value> value;
    // Nothing was dropped or cut.
    bool isWhole = true;
};

using ParameterValue = std::variant<bool, qint64, double, QString>;

struct Event {
    static constexpr qsizetype kMostNameLength = 40;
    static constexpr qsizetype kMostParameters = 25;
    static constexpr qsizetype kMostTextLength = 100;

    using Parameters = std::vector<std::pair<QString, ParameterValue>>;

    QString name;
    // In the order of their names.
    Parameters parameters;

    // Keeps the first parameters that are allowed; drops the others, cuts long texts. Values are
    // truth values, whole numbers of at most 64 bits with a sign, finite numbers and texts.
    [[nodiscard]] static Checked<Event> check(const QString& name, const QVariantMap& parameters);
};

struct UserProperty {
    static constexpr qsizetype kMostNameLength = 24;
    static constexpr qsizetype kMostLength = FIRAnalytics::kMostUserPropertyText;

    QString name;
    // Empty: there is none.
    QString value;

    [[nodiscard]] static Checked<UserProperty> check(const QString& name, const QString& value);
};

}  // namespace pellumar
