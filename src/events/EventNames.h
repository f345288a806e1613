#pragma once

#include <QLatin1String>

// All usage events there are. The names, misspellings included, are what is counted at the other
// end, and must not change.
namespace pellumar::event {

inline constexpr QLatin1String kTappedUnzip("tapped_unzip");
inline constexpr QLatin1String kTappedZip("tapped_zip");
inline constexpr QLatin1String kTappedFiles("tapped_files");
inline constexpr QLatin1String kTappedPhotos("tapped_photos");
inline constexpr QLatin1String kUsedShareExtension("used_share_extension");
inline constexpr QLatin1String kZippedSuccessfully("zipped_successfuly");
inline constexpr QLatin1String kFailedToZip("failed_to_zip");
inline constexpr QLatin1String kUnzippedSuccessfully("unzipped_successfuly");
inline constexpr QLatin1String kFailedToUnzip("failed_to_unzip");
inline constexpr QLatin1String kStartedTutorial("started_tutorial");
inline constexpr QLatin1String kFinishedTutorial("finished_tutorial");
inline constexpr QLatin1String kEvaluatedApp("evaluated_app");
inline constexpr QLatin1String kDeveloperTapped("developer_tapped");

// The one parameter of kEvaluatedApp, a whole number.
inline constexpr QLatin1String kRating("rating");

}  // namespace pellumar::event
