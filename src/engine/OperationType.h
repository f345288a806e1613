#pragma once

#include <cstdint>

namespace pellumar {

// What the user is about: making an archive, or opening one.
enum class OperationType : std::uint8_t { kZip = 0, kUnzip = 1 };

}  // namespace pellumar
