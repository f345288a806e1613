#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "archive/base/Bytes.h"

// A field of our own in the central header of a deflated entry, registered nowhere: from which of
// its bytes on the data can be inflated without what is before them. Readers that do not know it
// lose nothing. It holds, in 32 bits each,
//   - how many bytes of the content a section holds; the last may hold fewer,
//   - for each section but the last how many bytes of the data it takes.
// What it says is a hint, to be held against the data.
namespace pellumar::archive::format {

// A part of an entry: where it begins in the compressed data and in the content, and its size in
// both.
struct Section {
    std::uint64_t dataStart = 0;
    std::uint64_t dataSize = 0;
    std::uint64_t contentStart = 0;
    std::uint64_t contentSize = 0;
};

// Appends the field unless there are too many sections for one, or fewer than two. `dataSizes` are
// those of all sections.
void appendSections(std::vector<std::uint8_t>& extra,
                    std::uint32_t contentSize,
                    std::span<const std::uint32_t> dataSizes);

// The sections that the data of such a field tells of, at least two; none where it cannot be true
// of an entry of these sizes.
[[nodiscard]] std::vector<Section> parseSections(ByteView field,
                                                 std::uint64_t dataSize,
                                                 std::uint64_t contentSize);

}  // namespace pellumar::archive::format
