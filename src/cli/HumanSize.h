#pragma once

#include <cstdint>
#include <string>

namespace pellumar {

// A number of bytes in three digits or four for people, in powers of 1000: "999 B", "1.2 MB".
[[nodiscard]] std::string humanSize(std::uint64_t bytes);

// "1 entry", "2 entries".
[[nodiscard]] std::string humanCount(std::uint64_t entries);

}  // namespace pellumar
