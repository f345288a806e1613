#pragma once

#include <cstdint>
#include <string_view>

#include "archive/base/Bytes.h"
#include "archive/reading/Charset.h"

namespace pellumar::archive {

// How surprising a name is if its bytes are taken for text in one charset: tenths of bits, so that
// the likeliest reading of the same bytes is the one with the lowest sum. `letters` are the code
// points of all of `bytes` in that charset.
[[nodiscard]] std::uint64_t letterCost(Charset charset,
                                       ByteView bytes,
                                       std::u32string_view letters);

// The same for bytes that mean nothing in a charset.
[[nodiscard]] std::uint64_t costOfUnreadable(ByteView bytes);

// Whether this reading looks like words and not like the signs and rare letters that a wrong
// charset makes of them.
[[nodiscard]] bool isPlausible(Charset charset, ByteView bytes, std::u32string_view letters);

}  // namespace pellumar::archive
