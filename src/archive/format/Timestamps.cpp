#include "archive/format/Timestamps.h"

#include <algorithm>
#include <limits>

#include "archive/format/Append.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

namespace {

constexpr int kDosFirstYear = 1980;
constexpr int kDosLastYear = 2107;
constexpr int kTmFirstYear = 1900;
constexpr int kHours = 24;
constexpr std::time_t kMinutes = 60;  // of an hour, and seconds of a minute
constexpr DosDateTime kDosFirst{.time = 0, .date = (1U << 5U) | 1U};
constexpr DosDateTime kDosLast{.time = (23U << 11U) | (59U << 5U) | 29U,
                               .date = (127U << 9U) | (12U << 5U) | 31U};

constexpr std::uint8_t kHasModificationTime = 1;  // bit 0 of the extended timestamp's flags

// NTFS: four reserved bytes, then attributes of (tag, size, data); tag 1 holds three times.
constexpr std::size_t kNtfsReserved = 4;
constexpr std::uint16_t kNtfsTimesTag = 1;
constexpr std::uint16_t kNtfsTimesSize = 24;
constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kNanosecondsPerTick = 100;
// Seconds from 1601-01-01, where NTFS counts from, to 1970-01-01.
constexpr std::int64_t kNtfsEpochToUnix = 11'644'473'600;
constexpr std::int64_t kNtfsLastSecond =
    std::numeric_limits<std::int64_t>::max() / kTicksPerSecond - kNtfsEpochToUnix;

std::timespec fromNtfsTicks(std::uint64_t ticks) {
    // The upper half of the range lies after the year 30828; no clock tells such times.
    const auto count = static_cast<std::int64_t>(
        std::min(ticks, static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())));
    return {.tv_sec = count / kTicksPerSecond - kNtfsEpochToUnix,
            .tv_nsec = count % kTicksPerSecond * kNanosecondsPerTick};
}

std::optional<std::timespec> fromNtfsField(ByteView field) {
    if (field.size() < kNtfsReserved) {
        return std::nullopt;
    }
    const auto times = findExtraField(field.subspan(kNtfsReserved), kNtfsTimesTag);
    if (!times || times->size() < sizeof(std::uint64_t)) {
        return std::nullopt;
    }
    const auto ticks = loadLittleEndian<std::uint64_t>(*times);
    // Some writers leave the times they do not know at zero.
    return ticks == 0 ? std::nullopt : std::optional(fromNtfsTicks(ticks));
}

// For mktime, which is to find out by itself whether it was summer.
std::tm fieldsOf(DosDateTime dos) {
    std::tm local{};
    local.tm_year = (dos.date >> 9) + kDosFirstYear - kTmFirstYear;
    local.tm_mon = ((dos.date >> 5) & 0x0F) - 1;
    local.tm_mday = dos.date & 0x1F;
    local.tm_hour = dos.time >> 11;
    local.tm_min = (dos.time >> 5) & 0x3F;
    local.tm_sec = (dos.time & 0x1F) * 2;
    local.tm_isdst = -1;
    return local;
}

std::timespec fromSeconds32(ByteView field, std::size_t offset) {
    return {.tv_sec = static_cast<std::int32_t>(loadLittleEndian<std::uint32_t>(field, offset)),
            .tv_nsec = 0};
}

}  // namespace

DosDateTime toDosDateTime(const std::timespec& moment, bool inUtc) {
    std::tm local{};
    const auto* const known =
        inUtc ? gmtime_r(&moment.tv_sec, &local) : localtime_r(&moment.tv_sec, &local);
    if (known == nullptr) {
        return moment.tv_sec < 0 ? kDosFirst : kDosLast;
    }
    const int year = local.tm_year + kTmFirstYear;
    if (year < kDosFirstYear) {
        return kDosFirst;
    }
    if (year > kDosLastYear) {
        return kDosLast;
    }
    const auto field = [](int value, unsigned shift) {
        return static_cast<unsigned>(value) << shift;
    };
    // A leap second would not fit into the five bits.
    const int halfSeconds = std::min(local.tm_sec, 59) / 2;
    return {
        .time = static_cast<std::uint16_t>(field(local.tm_hour, 11) | field(local.tm_min, 5) |
                                           field(halfSeconds, 0)),
        .date = static_cast<std::uint16_t>(field(year - kDosFirstYear, 9) |
                                           field(local.tm_mon + 1, 5) | field(local.tm_mday, 0))};
}

std::timespec fromDosDateTime(DosDateTime dos) {
    std::tm local = fieldsOf(dos);
    const std::time_t seconds = std::mktime(&local);
    return {.tv_sec = seconds == -1 ? 0 : seconds, .tv_nsec = 0};
}

std::timespec DosDays::moment(DosDateTime dos) {
    Day& day = days_[dos.date % days_.size()];
    if (!day.isKnown || day.date != dos.date) {
        day = lookUp(dos.date);
    }
    const std::tm time = fieldsOf(dos);
    if (!day.isEven || time.tm_hour >= kHours || time.tm_min >= kMinutes ||
        time.tm_sec >= kMinutes) {
        return fromDosDateTime(dos);
    }
    const std::time_t minutes = time.tm_hour * kMinutes + time.tm_min;
    return {.tv_sec = day.midnight + minutes * kMinutes + time.tm_sec, .tv_nsec = 0};
}

DosDays::Day DosDays::lookUp(std::uint16_t date) {
    const auto at = [date](int day, int hour) {
        std::tm local = fieldsOf({.time = 0, .date = date});
        local.tm_mday += day;
        local.tm_hour = hour;
        const std::time_t seconds = std::mktime(&local);
        // A midnight that the clocks skip is told as another time.
        return local.tm_hour == hour && local.tm_min == 0 ? seconds : -1;
    };
    constexpr int kNoon = kHours / 2;
    constexpr std::time_t kHalf = kNoon * kMinutes * kMinutes;
    const std::time_t midnight = at(0, 0);
    const bool isEven =
        midnight != -1 && at(0, kNoon) == midnight + kHalf && at(1, 0) == midnight + 2 * kHalf;
    return {.isKnown = true, .isEven = isEven, .date = date, .midnight = midnight};
}

std::optional<std::timespec> modificationTimeIn(ByteView extra) {
    if (const auto ntfs = findExtraField(extra, kExtraNtfs)) {
        if (const auto moment = fromNtfsField(*ntfs)) {
            return moment;
        }
    }
    const auto extended = findExtraField(extra, kExtraExtendedTimestamp);
    if (extended && extended->size() >= 5 && ((*extended)[0] & kHasModificationTime) != 0) {
        return fromSeconds32(*extended, 1);
    }
    // Both old Unix fields begin with access time, then modification time.
    for (const std::uint16_t identifier : {kExtraInfoZipUnix1, kExtraUnixOld}) {
        const auto unixField = findExtraField(extra, identifier);
        if (unixField && unixField->size() >= 8) {
            return fromSeconds32(*unixField, 4);
        }
    }
    return std::nullopt;
}

void appendModificationTime(std::vector<std::uint8_t>& extra, const std::timespec& moment) {
    const std::int64_t seconds = moment.tv_sec;
    if (seconds >= std::numeric_limits<std::int32_t>::min() &&
        seconds <= std::numeric_limits<std::int32_t>::max()) {
        appendExtraFieldHeader(extra, kExtraExtendedTimestamp, 5);
        append(extra, kHasModificationTime);
        append(extra, static_cast<std::uint32_t>(seconds));
        return;
    }
    const std::int64_t clamped = std::clamp(seconds, -kNtfsEpochToUnix, kNtfsLastSecond);
    const auto ticks = static_cast<std::uint64_t>((clamped + kNtfsEpochToUnix) * kTicksPerSecond);
    appendExtraFieldHeader(
        extra, kExtraNtfs, kNtfsReserved + kExtraFieldHeaderSize + kNtfsTimesSize);
    append(extra, std::uint32_t{0});
    append(extra, kNtfsTimesTag);
    append(extra, kNtfsTimesSize);
    // Modification, access and creation: the one that is known, three times.
    for (int i = 0; i < 3; ++i) {
        append(extra, ticks);
    }
}

}  // namespace pellumar::archive::format
