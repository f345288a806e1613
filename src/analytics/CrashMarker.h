#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

namespace pellumar {

// Leaves a file behind when a fatal signal ends the process: the signal, the time, the version, the
// return addresses and where which library stands in memory, of which CrashReport makes offsets.
// Nothing of the memory's contents. What handled the signal before handles it afterwards, so that
// the process ends as it would have.
//
// The handler does nothing but what is allowed in one: it opens, reads and writes
// (signal-safety(7)), on memory that has always been there, and walks the stack with the compiler's
// unwinder, which neither allocates nor locks once it was used. What is surest is written first.
//
// At most one at a time may exist in a process; the thread that makes it also gets a stack of its
// own for the handler, so that an overflow of the usual one is seen too.
class CrashMarker {
  public:
    // The file is `marker`, whose folder must exist when a signal comes. Not armed yet.
    CrashMarker(const std::filesystem::path& marker, const std::string& version);
    // Puts back what was there before, if nothing else has come since.
    ~CrashMarker();
    CrashMarker(const CrashMarker&) = delete;
    CrashMarker& operator=(const CrashMarker&) = delete;

    // From any thread. Unarmed, a signal leaves nothing.
    void arm(bool armed);
};

// What such a file says, read by the next start.
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
