#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <optional>
#include <vector>

#include "archive/base/Bytes.h"

// Modification times, in their three forms: MS-DOS local time (APPNOTE 4.4.6), seconds in
// Info-ZIP's extended timestamp field, and 100 ns ticks in the NTFS field (4.5.5).
namespace pellumar::archive::format {

// Local time in steps of two seconds, from 1980 to the end of 2107.
struct DosDateTime {
    std::uint16_t time = 0;
    std::uint16_t date = 0;

    friend bool operator==(const DosDateTime&, const DosDateTime&) = default;
};

// The local time of `moment`, or that of UTC, clamped to what the form can say.
[[nodiscard]] DosDateTime toDosDateTime(const std::timespec& moment, bool inUtc = false);

// A DOS time as a moment, read as local time. Fields out of range (month 0 of some writers) are
// carried over as mktime does it; a moment that cannot be told is the epoch.
[[nodiscard]] std::timespec fromDosDateTime(DosDateTime dos);

// The same for many times: what mktime says of a day serves all of that day's.
class DosDays {
  public:
    [[nodiscard]] std::timespec moment(DosDateTime dos);

  private:
    struct Day {
        bool isKnown = false;
        // From its midnight on it has all its hours, each once.
        bool isEven = false;
        std::uint16_t date = 0;
        std::time_t midnight = 0;
    };

    static Day lookUp(std::uint16_t date);

    // By day and month: those of one year do not displace each other.
    std::array<Day, 512> days_{};
};

// The modification time that the extra fields hold, the most exact one: NTFS, extended timestamp,
// the two old Unix fields. Nothing if none has one.
[[nodiscard]] std::optional<std::timespec> modificationTimeIn(ByteView extra);

// Appends the extra field that holds `moment` in whole seconds: the extended timestamp where 32
// bits suffice, else the NTFS field, clamped to what that can say. The same bytes serve the local
// and the central header.
void appendModificationTime(std::vector<std::uint8_t>& extra, const std::timespec& moment);

}  // namespace pellumar::archive::format
