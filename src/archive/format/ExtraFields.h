#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "archive/base/Bytes.h"

// The chain of (identifier, size, data) records behind a header's name (APPNOTE 4.5.1).
namespace pellumar::archive::format {

struct ExtraField {
    std::uint16_t identifier = 0;
    ByteView data;
};

// Takes the first field off the chain; nothing at its end.
[[nodiscard]] std::optional<ExtraField> takeExtraField(ByteView& extra);

// The data of the first extra field with this identifier, or nothing. A chain that is cut off in
// the middle of a field ends before that field: writers pad with a few stray bytes.
[[nodiscard]] std::optional<ByteView> findExtraField(ByteView extra, std::uint16_t identifier);

// Appends a field's header; `size` bytes of data follow, appended by the caller.
void appendExtraFieldHeader(std::vector<std::uint8_t>& out,
                            std::uint16_t identifier,
                            std::uint16_t size);

}  // namespace pellumar::archive::format
