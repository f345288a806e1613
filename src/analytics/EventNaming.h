#pragma once

#include <QString>

namespace pellumar {

// Names of our own in what is measured. The application's may not begin with this.
inline const QString kReservedPrefix = QStringLiteral("pz_");

// Events that nobody logs.
namespace automatic {
inline const QString kFirstOpen = QStringLiteral("pz_first_open");
inline const QString kSessionStart = QStringLiteral("pz_session_start");
inline const QString kEngagement = QStringLiteral("pz_engagement");
inline const QString kAppUpdate = QStringLiteral("pz_app_update");
inline const QString kSystemUpdate = QStringLiteral("pz_system_update");
inline const QString kCrash = QStringLiteral("pz_crash");

inline const QString kSessionNumber = QStringLiteral("pz_session_number");
inline const QString kEngagementTime = QStringLiteral("pz_engagement_ms");
inline const QString kPreviousVersion = QStringLiteral("pz_previous_version");
inline const QString kSignal = QStringLiteral("pz_signal");
inline const QString kCrashedVersion = QStringLiteral("pz_crashed_version");
inline const QString kStack = QStringLiteral("pz_stack");
}  // namespace automatic

// What an event says of a parameter that broke a limit: the code and the name of the first one.
inline const QString kErrorParameter = QStringLiteral("pz_error");
inline const QString kErrorNameParameter = QStringLiteral("pz_error_name");

// The user property that shows membership of an audience is this and the audience's name.
inline const QString kAudiencePrefix = QStringLiteral("pz_in_");

}  // namespace pellumar
