#pragma once

#include <string_view>

namespace pellumar::test {

// The first argument of this program as the child that is killed; the folder and the address of the
// server follow.
inline constexpr std::string_view kChildArgument = "--fetch-and-activate-for-ever";

[[noreturn]] void fetchAndActivateForEver(const char* folder, const char* address);

}  // namespace pellumar::test
