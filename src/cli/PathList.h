#pragma once

#include <filesystem>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace pellumar {

// The paths that a file lists, or standard input for "-": each ended by NUL if there is one in it,
// else one a line. Empty ones are passed over. The error is a phrase for people.
[[nodiscard]] tl::expected<std::vector<std::filesystem::path>, std::string> readPathList(
    const std::filesystem::path& list);

}  // namespace pellumar
