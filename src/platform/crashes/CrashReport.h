#pragma once

#include <QString>
#include <filesystem>
#include <optional>

namespace pellumar {

// What a crash marker says, read by the next start.
struct CrashReport {
    // "SIGSEGV".
    QString signal;
    // Of the application that crashed.
    QString version;
    // Milliseconds since 1970 in UTC; 0 if it is not known, or told by a clock that was not set.
    qint64 time = 0;
    // Of the marker, unlike every other's.
    QString fingerprint;
    // A line for each place, "library+0x1f": the file's name without its folder, and the offset in
    // it. The place of the crash comes first. Nothing else gets here from the marker.
    QString stack;

    // Nothing if there is no marker, or if it cannot be read now. One that the process could not
    // finish yields what there is.
    [[nodiscard]] static std::optional<CrashReport> read(const std::filesystem::path& marker);
};

}  // namespace pellumar
