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
    // it. The place of the crash comes first.
    QString stack;

    // Where the marker of a folder stands, and where while it is told.
    [[nodiscard]] static std::filesystem::path markerIn(const std::filesystem::path& folder);
    [[nodiscard]] static std::filesystem::path claimedIn(const std::filesystem::path& folder);

    // Takes the folder's marker out of the way of the next crash, and reads it; nothing if there is
    // none, or if it cannot be read now, when it stays. One that the process could not finish
    // yields what there is. Another process that does the same at once may read the same one.
    [[nodiscard]] static std::optional<CrashReport> claim(const std::filesystem::path& folder);
    // What was claimed has been told, or is not to be.
    static void forget(const std::filesystem::path& folder);
    // Removes the marker, claimed or not.
    static void erase(const std::filesystem::path& folder);
};

}  // namespace pellumar
