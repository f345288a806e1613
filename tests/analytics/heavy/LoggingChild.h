#pragma once

#include <string_view>

namespace pellumar::test {

// The first argument of this program as the child that is killed; the folder, the address of the
// collector, the number of its first event and what to begin with follow.
inline constexpr std::string_view kChildArgument = "--log-for-ever";

// What to begin with: nothing, or events while there is no consent, which is given again
// afterwards.
inline constexpr std::string_view kPlain = "plain";
inline constexpr std::string_view kForbidden = "forbidden";

// Logs "counted" with its number, one after the other. Writes to standard output how many of them
// are stored, a line each time, and begins with 0 when there is consent.
[[noreturn]] void logForEver(const char* folder,
                             const char* address,
                             int first,
                             std::string_view beginning);

}  // namespace pellumar::test
