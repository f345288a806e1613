#include "archive/format/Sections.h"

#include <algorithm>

#include "archive/format/Append.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

namespace {

constexpr std::size_t kNumber = sizeof(std::uint32_t);

// So that the header's other fields find room beside it, in the 65,535 bytes for all of them.
constexpr std::size_t kMostSections = 16'000;

}  // namespace

void appendSections(std::vector<std::uint8_t>& extra,
                    std::uint32_t contentSize,
                    std::span<const std::uint32_t> dataSizes) {
    if (dataSizes.size() < 2 || dataSizes.size() > kMostSections) {
        return;
    }
    appendExtraFieldHeader(
        extra, kExtraSections, static_cast<std::uint16_t>(dataSizes.size() * kNumber));
    append(extra, contentSize);
    for (const std::uint32_t size : dataSizes.first(dataSizes.size() - 1)) {
        append(extra, size);
    }
}

std::vector<Section> parseSections(ByteView field,
                                   std::uint64_t dataSize,
                                   std::uint64_t contentSize) {
    if (field.size() < 2 * kNumber || field.size() % kNumber != 0) {
        return {};
    }
    const std::uint64_t each = loadLittleEndian<std::uint32_t>(field);
    const std::size_t count = field.size() / kNumber;
    if (contentSize == 0 || each == 0 || (contentSize - 1) / each + 1 != count) {
        return {};
    }
    std::vector<Section> sections(count);
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t left = dataSize - start;
        const std::uint64_t size =
            i + 1 == count ? left : loadLittleEndian<std::uint32_t>(field, (i + 1) * kNumber);
        if (size == 0 || size > left) {
            return {};
        }
        sections[i] = {.dataStart = start,
                       .dataSize = size,
                       .contentStart = i * each,
                       .contentSize = std::min(each, contentSize - i * each)};
        start += size;
    }
    return sections;
}

}  // namespace pellumar::archive::format
