#include "cli/LocalDays.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string_view>

namespace pellumar {
namespace {

constexpr int kFirstYear = 1900;
constexpr std::time_t kMinute = 60;
constexpr std::time_t kHour = 60 * kMinute;
constexpr std::time_t kDay = 24 * kHour;

// At least so many digits; the value is not negative.
void appendNumber(std::string& text, long value, std::size_t digits) {
    std::array<char, 24> written{};
    const char* const end =
        std::to_chars(written.data(), written.data() + written.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - written.data());
    text.append(digits - std::min(digits, length), '0');
    text.append(written.data(), length);
}

void appendDate(std::string& text, const std::tm& local) {
    appendNumber(text, std::max(long{local.tm_year} + kFirstYear, 0L), 4);
    text += '-';
    appendNumber(text, local.tm_mon + 1, 2);
    text += '-';
    appendNumber(text, local.tm_mday, 2);
}

void appendClock(std::string& text, long hour, long minute) {
    const auto digit = [](long value) { return static_cast<char>('0' + value); };
    const std::array<char, 6> clock = {
        ' ', digit(hour / 10), digit(hour % 10), ':', digit(minute / 10), digit(minute % 10)};
    text.append(clock.data(), clock.size());
}

bool isSameDay(const std::tm& one, const std::tm& other) {
    return one.tm_year == other.tm_year && one.tm_yday == other.tm_yday;
}

}  // namespace

void LocalDays::appendOne(std::string& text, std::time_t moment) {
    std::tm local{};
    ::localtime_r(&moment, &local);
    appendDate(text, local);
    appendClock(text, local.tm_hour, local.tm_min);
}

void LocalDays::append(std::string& text, std::time_t moment) {
    // Far from where the sums below could overflow.
    constexpr std::time_t kFar = std::time_t{1} << 40;
    if (moment < 0 || moment > kFar) {
        return appendOne(text, moment);
    }
    const std::time_t number = std::max<std::time_t>(moment + eastOfGreenwich_, 0) / kDay;
    Day& day = days_[static_cast<std::size_t>(number) % days_.size()];
    if (!day.isEven || moment < day.midnight || moment >= day.midnight + kDay) {
        std::tm local{};
        ::localtime_r(&moment, &local);
        eastOfGreenwich_ = local.tm_gmtoff;
        day = dayOf(moment, local);
        if (!day.isEven) {
            return appendOne(text, moment);
        }
    }
    const std::time_t since = moment - day.midnight;
    text += day.date;
    appendClock(text, since / kHour, since % kHour / kMinute);
}

LocalDays::Day LocalDays::dayOf(std::time_t moment, const std::tm& local) {
    const std::time_t midnight =
        moment - (local.tm_hour * kHour + local.tm_min * kMinute + local.tm_sec);
    // The same day at its midnight, at noon and in its last second.
    for (const std::time_t since : {std::time_t{0}, kDay / 2, kDay - 1}) {
        const std::time_t then = midnight + since;
        std::tm found{};
        ::localtime_r(&then, &found);
        const std::time_t told =
            found.tm_hour * kHour + found.tm_min * kMinute + std::time_t{found.tm_sec};
        if (told != since || !isSameDay(found, local)) {
            return {};
        }
    }
    Day day{.isEven = true, .midnight = midnight, .date = {}};
    appendDate(day.date, local);
    return day;
}

}  // namespace pellumar
