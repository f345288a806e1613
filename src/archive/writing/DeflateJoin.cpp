#include "archive/writing/DeflateJoin.h"

#include <algorithm>
#include <cstring>

namespace pellumar::archive {

namespace {

constexpr unsigned kBlockHeaderBits = 3;
constexpr std::array<std::uint8_t, 4> kEmptyStoredLengths = {0x00, 0x00, 0xFF, 0xFF};

}  // namespace

std::optional<std::size_t> openDeflateEnd(DeflateBlockWalker& walker,
                                          MutableBytes buffer,
                                          std::size_t size) {
    const auto layout = walker.walk(buffer.first(size));
    if (!layout || (layout->end + 7) / 8 != size) {
        return std::nullopt;
    }
    std::uint8_t& header = buffer[layout->lastBlock / 8];
    header = static_cast<std::uint8_t>(header & ~(1U << (layout->lastBlock % 8)));
    const std::size_t usedBits = layout->end % 8;
    if (usedBits == 0) {
        return size;
    }
    // An empty stored block aligns: three zero bits of header, zeros to the boundary, then a length
    // of 0 and its complement. The last byte's unused bits are zero already; where they are fewer
    // than the header needs, it reaches into a byte of its own.
    if (usedBits + kBlockHeaderBits > 8) {
        buffer[size++] = 0;
    }
    for (const std::uint8_t byte : kEmptyStoredLengths) {
        buffer[size++] = byte;
    }
    return size;
}

void storeAsDeflate(ByteView content, bool last, MutableBytes buffer) {
    std::size_t at = 0;
    do {
        const std::size_t size = std::min(content.size(), kMostInStoredBlock);
        const auto length = static_cast<std::uint16_t>(size);
        buffer[at] = last && size == content.size() ? 1 : 0;
        storeLittleEndian(buffer, at + 1, length);
        storeLittleEndian(buffer, at + 3, static_cast<std::uint16_t>(~length));
        if (size != 0) {
            std::memcpy(&buffer[at + kStoredBlockHeader], content.data(), size);
        }
        at += kStoredBlockHeader + size;
        content = content.subspan(size);
    } while (!content.empty());
}

}  // namespace pellumar::archive
