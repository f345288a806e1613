#include "archive/format/ExtraFields.h"

#include "archive/format/Append.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

std::optional<ExtraField> takeExtraField(ByteView& extra) {
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

std::optional<ByteView> findExtraField(ByteView extra, std::uint16_t identifier) {
    while (const auto field = takeExtraField(extra)) {
        if (field->identifier == identifier) {
            return field->data;
        }
    }
    return std::nullopt;
}

void appendExtraFieldHeader(std::vector<std::uint8_t>& out,
                            std::uint16_t identifier,
                            std::uint16_t size) {
    append(out, identifier);
    append(out, size);
}

}  // namespace pellumar::archive::format
