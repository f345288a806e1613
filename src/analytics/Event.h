#pragma once

#include <QString>
#include <variant>
#include <vector>

namespace pellumar {

using ParameterValue = std::variant<bool, qint64, double, QString>;

struct EventParameter {
    QString name;
    ParameterValue value;

    friend bool operator==(const EventParameter&, const EventParameter&) = default;
};

// An event within all limits.
struct Event {
    QString name;
    std::vector<EventParameter> parameters;
    // How many parameters of the caller's did not come so far.
    int droppedParameters = 0;
};

struct UserProperty {
    QString name;
    // Empty: there is none.
    QString value;
    // Found out for advertising.
    bool advertising = false;
};

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

}  // namespace pellumar
