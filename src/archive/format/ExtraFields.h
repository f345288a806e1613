#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/format/ZipFormat.h"

// The chain of (identifier, size, data) records behind a header's name (APPNOTE 4.5.1).
namespace pellumar::archive::format {

struct ExtraField {
    std::uint16_t identifier = 0;
    ByteView data;
};

// Takes the first field off the chain; nothing at its end.
[[nodiscard]] inline std::optional<ExtraField> takeExtraField(ByteView& extra) {
    if (extra.size() < kExtraFieldHeaderSize) {
        return std::nullopt;
    }
    const auto size = loadLittleEndian<std::uint16_t>(extra, 2);
    if (size > extra.size() - kExtraFieldHeaderSize) {
        return std::nullopt;
    }
    const ExtraField field{.identifier = loadLittleEndian<std::uint16_t>(extra, 0),
                           .data = extra.subspan(kExtraFieldHeaderSize, size)};
    extra = extra.subspan(kExtraFieldHeaderSize + size);
    return field;
}

// The data of the first extra field with this identifier, or nothing. A chain that is cut off in
// the middle of a field ends before that field: writers pad with a few stray bytes.
[[nodiscard]] inline std::optional<ByteView> findExtraField(ByteView extra,
                                                            std::uint16_t identifier) {
    while (const auto field = takeExtraField(extra)) {
        if (field->identifier == identifier) {
            return field->data;
        }
    }
    return std::nullopt;
}

// Appends a field's header; `size` bytes of data follow, appended by the caller.
void appendExtraFieldHeader(std::vector<std::uint8_t>& out,
                            std::uint16_t identifier,
                            std::uint16_t size);

}  // namespace pellumar::archive::format
