#include "archive/format/ExtraFields.h"

#include "archive/format/Append.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

std::optional<ByteView> findExtraField(ByteView extra, std::uint16_t identifier) {
    while (extra.size() >= kExtraFieldHeaderSize) {
        const auto id = loadLittleEndian<std::uint16_t>(extra, 0);
        const auto size = loadLittleEndian<std::uint16_t>(extra, 2);
        extra = extra.subspan(kExtraFieldHeaderSize);
        if (size > extra.size()) {
            return std::nullopt;
        }
        if (id == identifier) {
            return extra.first(size);
        }
        extra = extra.subspan(size);
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
