#pragma once

#include <cstdint>
#include <optional>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// The offset of the first place between `start` and `end` where the record with this signature
// could begin, all of its four bytes before `end`; nothing if there is none. Reads up to there, in
// pieces. kReadFailed, kTruncated.
[[nodiscard]] Result<std::optional<std::uint64_t>> findSignature(const ByteSource& file,
                                                                 std::uint32_t signature,
                                                                 std::uint64_t start,
                                                                 std::uint64_t end);

// Whether a local header could be meant by the bytes, its fixed part, that begin with its
// signature, or they begin so by chance.
[[nodiscard]] bool looksLikeLocalHeader(ByteView bytes);

// The offset of the first local file header, by its looks, in the gap from `start` to `end`: looked
// for at the gap's beginning, where deleted entries leave theirs.
[[nodiscard]] Result<std::optional<std::uint64_t>> findLocalHeader(const ByteSource& file,
                                                                   std::uint64_t start,
                                                                   std::uint64_t end);

}  // namespace pellumar::archive
