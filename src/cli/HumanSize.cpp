#include "cli/HumanSize.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace pellumar {

std::string humanSize(std::uint64_t bytes) {
    constexpr double kStep = 1000;
    constexpr std::array kUnits{"B", "kB", "MB", "GB", "TB", "PB", "EB"};
    auto value = static_cast<double>(bytes);
    std::size_t unit = 0;
    // What would be rounded to 1000 is one of the next.
    while (std::round(value) >= kStep) {
        value /= kStep;
        ++unit;
    }
    constexpr double kShort = 9.95;
    std::array<char, 32> text{};
    static_cast<void>(std::snprintf(text.data(),
                                    text.size(),
                                    "%.*f %s",
                                    unit > 0 && value < kShort ? 1 : 0,
                                    value,
                                    kUnits[unit]));
    return text.data();
}

std::string humanCount(std::uint64_t entries) {
    return std::to_string(entries) + (entries == 1 ? " entry" : " entries");
}

}  // namespace pellumar
