#include "cli/ProgressLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "cli/HumanSize.h"
#include "cli/PrintableText.h"

namespace pellumar {
namespace {

using std::chrono::duration;

constexpr std::chrono::milliseconds kBetweenStatuses{100};
// What is over sooner is not worth a line.
constexpr std::chrono::milliseconds kBeforeFirst{300};
// How much of the measured speed is that of the last second or so.
constexpr double kMemory = 2;

std::string humanTime(double seconds) {
    constexpr unsigned long kMinute = 60;
    constexpr double kLongestTime = 359999;  // 99:59:59
    const auto whole = static_cast<unsigned long>(std::min(std::ceil(seconds), kLongestTime));
    const unsigned long minutes = whole / kMinute;
    std::array<char, 64> text{};
    if (minutes >= kMinute) {
        static_cast<void>(std::snprintf(text.data(),
                                        text.size(),
                                        "%lu:%02lu:%02lu",
                                        minutes / kMinute,
                                        minutes % kMinute,
                                        whole % kMinute));
    } else {
        static_cast<void>(
            std::snprintf(text.data(), text.size(), "%lu:%02lu", minutes, whole % kMinute));
    }
    return text.data();
}

// The end of a name tells more than its beginning. Columns are counted as letters, not cutting one.
std::string tailOf(std::string_view name, std::size_t columns) {
    std::string text = printable(name);
    const auto begins = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80;
    };
    std::size_t start = text.size();
    std::size_t letters = 0;
    for (std::size_t i = text.size(); i-- > 0;) {
        if (begins(text[i])) {
            if (++letters > columns) {
                return columns > 1 ? "…" + text.substr(start) : "";
            }
            if (letters < columns) {
                start = i;
            }
        }
    }
    return text;
}

}  // namespace

ProgressLine::ProgressLine(Messages& messages)
    : messages_(messages),
      shown_(Clock::now() + kBeforeFirst - kBetweenStatuses),
      measured_(Clock::now()) {}

ProgressLine::~ProgressLine() {
    messages_.clearStatus();
}

archive::ProgressHandler ProgressLine::handler() {
    if (!messages_.hasStatus()) {
        return {};
    }
    return [this](const archive::Progress& progress) { show(progress); };
}

void ProgressLine::show(const archive::Progress& progress) {
    const Clock::time_point now = Clock::now();
    if (now - shown_ < kBetweenStatuses) {
        return;
    }
    shown_ = now;
    const std::uint64_t total = progress.bytesTotal > 0 ? progress.bytesTotal : expected_;
    const double speed = rate(progress.bytesDone, now);
    std::string line;
    if (total > 0) {
        constexpr std::uint64_t kWhole = 100;
        const double part = static_cast<double>(progress.bytesDone) / static_cast<double>(total);
        line = std::to_string(std::min(static_cast<std::uint64_t>(part * kWhole), kWhole)) +
               " %  " + humanSize(progress.bytesDone) + " of " + humanSize(total);
    } else {
        line = humanSize(progress.bytesDone);
    }
    if (speed >= 1) {
        line += "  " + humanSize(static_cast<std::uint64_t>(speed)) + "/s";
        if (total > progress.bytesDone) {
            line +=
                "  " + humanTime(static_cast<double>(total - progress.bytesDone) / speed) + " left";
        }
    }
    // The last column stays free: some terminals break the line there.
    const std::size_t width = Messages::width() - 1;
    if (line.size() + 2 < width) {
        line += "  " + tailOf(progress.entry, width - line.size() - 2);
    } else {
        line.resize(std::min(line.size(), width));
    }
    messages_.showStatus(line);
}

double ProgressLine::rate(std::uint64_t bytesDone, Clock::time_point now) {
    const double seconds = duration<double>(now - measured_).count();
    if (seconds > 0 && bytesDone >= bytesMeasured_) {
        const double latest = static_cast<double>(bytesDone - bytesMeasured_) / seconds;
        const double weight = rate_ > 0 ? 1 - std::exp(-seconds / kMemory) : 1;
        rate_ += (latest - rate_) * weight;
    }
    measured_ = now;
    bytesMeasured_ = bytesDone;
    return rate_;
}

}  // namespace pellumar
