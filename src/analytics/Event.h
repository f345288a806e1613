#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>

#include "platform/FIRAnalytics.h"

namespace pellumar {

// Names of our own in what is measured. The application's may not begin with this.
inline const QString kReservedPrefix = QStringLiteral("pz_");
// The user property that shows membership of an audience is this and the audience's name.
inline const QString kAudiencePrefix = QStringLiteral("pz_in_");

// Why something was lost, as it leaves the machine.
namespace loss {
// The application was faster than the disk.
inline const QString kQueueFull = QStringLiteral("queue_full");
// An event, a parameter or a property that broke a limit.
inline const QString kInvalid = QStringLiteral("invalid");
// Left out by sampling.
inline const QString kSampledOut = QStringLiteral("sampled_out");
// The oldest, for want of room.
inline const QString kNoRoom = QStringLiteral("no_room");
// Too old.
inline const QString kExpired = QStringLiteral("expired");
// The collector did not want them.
inline const QString kRefused = QStringLiteral("refused");
}  // namespace loss

// Why something was dropped or cut. The numbers leave the machine and keep their meaning.
enum class MeasurementError {
    kNone = 0,
    kName = 3,
    kReservedName = 4,
    kTooManyParameters = 5,
    kTextCut = 6,
    kParameterType = 7,
};

// What the application says, held to the limits and copied, so that what is kept in memory is small
// and nobody else's. A name is a letter of ASCII, then letters, digits and underscores. Lengths are
// those of TextLength.h.
template <typename Value>
struct Checked {
    // Nothing if it is not allowed.
    std::optional<Value> value;
    // The first thing that was wrong; with an event, it is in its error parameter as well.
    MeasurementError error = MeasurementError::kNone;
};

struct Event {
    static constexpr qsizetype kMostNameLength = 40;
    static constexpr qsizetype kMostParameters = 25;
    static constexpr qsizetype kMostTextLength = 100;

    QString name;
    // Of these four types: bool, qint64, double, QString.
    QVariantMap parameters;

    // Keeps the first parameters in the order of their names; drops those that are wrong, cuts long
    // texts. Values are truth values, whole numbers of at most 64 bits with a sign, finite numbers
    // and texts.
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
