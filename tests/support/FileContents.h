#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Whole files at once. A file that cannot be read or written ends the test program with its name.
namespace pellumar::test {

void writeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
void writeFile(const std::filesystem::path& path, std::string_view text);

[[nodiscard]] std::vector<std::uint8_t> readFile(const std::filesystem::path& path);
[[nodiscard]] std::string readText(const std::filesystem::path& path);

}  // namespace pellumar::test
