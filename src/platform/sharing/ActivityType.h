#pragma once

#include <QLatin1String>

// The kinds of sharing.
namespace pellumar::activity {

inline constexpr QLatin1String kSaveTo("org.pellumar.activity.saveTo");
inline constexpr QLatin1String kOpenWith("org.pellumar.activity.openWith");
inline constexpr QLatin1String kMail("org.pellumar.activity.mail");
inline constexpr QLatin1String kBluetooth("org.pellumar.activity.bluetooth");
inline constexpr QLatin1String kPhone("org.pellumar.activity.phone");
inline constexpr QLatin1String kCopy("org.pellumar.activity.copy");
inline constexpr QLatin1String kShowInFiles("org.pellumar.activity.showInFiles");
// There is no target of these kinds yet; screens exclude them all the same.
inline constexpr QLatin1String kAssignToContact("org.pellumar.activity.assignToContact");
inline constexpr QLatin1String kSaveToCameraRoll("org.pellumar.activity.saveToCameraRoll");

}  // namespace pellumar::activity
