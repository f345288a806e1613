#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Names for what cannot have the one it should have.
namespace pellumar::archive {

// The numbers that are tried where a name is taken.
inline constexpr std::size_t kFirstNumber = 2;
inline constexpr std::size_t kMostNumbers = 10'000;

// A path whose last component tells a number, in front of its extension: "a/name (2).ext". Where a
// file system would not take a name as long as that, letters in front of the number are left out.
[[nodiscard]] std::string numberedName(std::string_view path, std::size_t number);

// A name that nobody has, for a file that is being written: short, so that it fits wherever a name
// does; not hidden, so that it is seen and cleared away.
[[nodiscard]] std::string temporaryName();

}  // namespace pellumar::archive
