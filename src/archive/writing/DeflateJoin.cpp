#include "archive/writing/DeflateJoin.h"

#include <algorithm>
#include <cstring>

namespace pellumar::archive {

namespace {

constexpr unsigned kBlockHeaderBits = 3;
constexpr std::array<std::uint8_t, 4> kEmptyStoredLengths = {0x00, 0x00, 0xFF, 0xFF};

// A match that reaches further behind what is taken off costs more than it gains.
constexpr std::size_t kLongestOverhang = 64;

// What stands in front of the symbols that are left, written bit by bit.
class Head {
  public:
    // The lowest bit first; 57 at most.
    void add(std::uint64_t value, unsigned count) {
        for (unsigned bit = 0; bit < count; ++bit, ++size_) {
            const std::uint64_t one = (value >> bit) & 1U;
            bytes_[size_ / 8] = static_cast<std::uint8_t>(bytes_[size_ / 8] | one << (size_ % 8));
        }
    }
    void addFrom(ByteView stream, std::size_t bit, std::size_t end) {
        for (; bit < end; ++bit) {
            add(std::uint64_t{stream[bit / 8]} >> (bit % 8), 1);
        }
    }
    void addStored(ByteView bytes) {
        storeAsDeflate(bytes, false, bytes_);
        size_ += 8 * storedDeflateSize(bytes.size());
    }

    // Adds blocks of nothing until what comes after `bits` more stands at that bit of a byte.
    void alignTo(std::size_t place, std::size_t bits) {
        const auto missing = [&] { return (place - bits - size_) % 8; };
        if (missing() % 2 != 0) {
            addOddBlock();
        }
        while (missing() != 0) {
            add(kFixedBlock << 1U, 10);  // its end has seven zero bits
        }
    }

    // In bits.
    [[nodiscard]] std::size_t size() const { return size_; }

    // Puts it before the bit `next` of the stream, at its front, and takes all else before that
    // away; how many bits there are less. It is no longer than what it replaces.
    [[nodiscard]] std::size_t putBefore(std::size_t next, MutableBytes stream) const {
        const std::size_t whole = size_ / 8;
        const auto own = static_cast<std::uint8_t>((1U << (size_ % 8)) - 1U);
        const ByteView rest = stream.subspan(next / 8);
        const auto shared = static_cast<std::uint8_t>((rest[0] & ~own) | (bytes_[whole] & own));
        std::memmove(&stream[whole], rest.data(), rest.size());
        std::copy_n(bytes_.begin(), whole, stream.begin());
        stream[whole] = shared;
        return next - size_;
    }

    // A header's 74 bits and 14 for each of 316 codes' lengths, what is before it, and a byte.
    static constexpr std::size_t kCapacity = 640 + kLongestOverhang;

  private:
    // Of 91 bits: two literal codes, of which one is the end, and a distance, all of one bit.
    void addOddBlock() {
        constexpr std::uint64_t kCodesOf1And18 = 1ULL << (3U * 17U) | 1ULL << (3U * 2U);
        add(kDynamicBlock << 1U, 3);
        add(0, 10);
        add(18 - 4, 4);
        add(kCodesOf1And18, 54);
        add(0, 1);                        // a literal
        add(1U | (138U - 11U) << 1U, 8);  // 255 that there are not
        add(1U | (117U - 11U) << 1U, 8);
        add(0, 2);  // the end, the distance
        add(1, 1);
    }

    std::array<std::uint8_t, kCapacity> bytes_{};
    std::size_t size_ = 0;
};

// Takes what tells of the front off the stream; its layout then. What a match tells beyond the
// front comes in a stored block, then the header of the block that the front ends in once more. The
// rest keeps its place within the bytes, as stored blocks in it need.
std::optional<DeflateBlockWalker::Layout> dropFront(MutableBytes stream,
                                                    DeflateBlockWalker::Layout layout,
                                                    ByteView content) {
    const DeflateBlockWalker::Front& front = layout.front;
    if (front.overhang > std::min(kLongestOverhang, content.size())) {
        return std::nullopt;
    }
    Head head;
    if (front.overhang > 0) {
        head.addStored(content.first(front.overhang));
    }
    head.alignTo(front.next, front.symbols - front.block);
    const std::size_t header = head.size();
    head.addFrom(stream, front.block, front.symbols);
    if (head.size() > front.next) {
        return std::nullopt;
    }
    const std::size_t less = head.putBefore(front.next, stream);
    layout.lastBlock = layout.lastBlock == front.block ? header : layout.lastBlock - less;
    layout.end -= less;
    return layout;
}

// What the last block says of itself is taken back, and what follows aligned.
std::size_t openEnd(MutableBytes buffer, const DeflateBlockWalker::Layout& layout) {
    std::uint8_t& header = buffer[layout.lastBlock / 8];
    header = static_cast<std::uint8_t>(header & ~(1U << (layout.lastBlock % 8)));
    std::size_t size = (layout.end + 7) / 8;
    const std::size_t usedBits = layout.end % 8;
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

}  // namespace

std::optional<std::size_t> openDeflateEnd(DeflateBlockWalker& walker,
                                          MutableBytes buffer,
                                          std::size_t size) {
    return openDeflateEnds(walker, buffer, size, {}, 0);
}

std::optional<std::size_t> openDeflateEnds(DeflateBlockWalker& walker,
                                           MutableBytes buffer,
                                           std::size_t size,
                                           ByteView content,
                                           std::size_t front) {
    auto layout = walker.walk(buffer.first(size), front);
    if (!layout || (layout->end + 7) / 8 != size) {
        return std::nullopt;
    }
    if (front > 0) {
        layout = dropFront(buffer.first(size), *layout, content.subspan(front));
    }
    return layout ? std::optional(openEnd(buffer, *layout)) : std::nullopt;
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
