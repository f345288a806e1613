#include "archive/format/ExtraFields.h"

#include "archive/format/Append.h"

namespace pellumar::archive::format {

void appendExtraFieldHeader(std::vector<std::uint8_t>& out,
                            std::uint16_t identifier,
                            std::uint16_t size) {
    append(out, identifier);
    append(out, size);
}

}  // namespace pellumar::archive::format
