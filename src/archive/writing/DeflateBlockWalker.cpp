#include "archive/writing/DeflateBlockWalker.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "archive/codecs/BitReader.h"

namespace pellumar::archive {

namespace {

// A step is the number of bits to skip, and in the two highest bits what comes then.
constexpr std::uint8_t kStepBits = 0x3F;
constexpr std::uint8_t kThenDistance = 0x40;
constexpr std::uint8_t kRare = 0x80;  // the end of the block; alone: a codeword not in the table

// The step of a symbol of the literal and length code; 0 for one that must not occur.
std::uint8_t stepOf(std::size_t symbol, unsigned length) {
    if (symbol < kEndOfBlock) {
        return static_cast<std::uint8_t>(length);
    }
    if (symbol == kEndOfBlock) {
        return static_cast<std::uint8_t>(length | kRare);
    }
    const std::size_t index = symbol - kFirstLength;
    if (index >= kLengthRanges.size()) {
        return 0;
    }
    return static_cast<std::uint8_t>((length + kLengthRanges[index].bits) | kThenDistance);
}

}  // namespace

// The stream's bits, lowest first. Behind its end come zeros, and then ensure() fails.
class DeflateBlockWalker::WordReader {
  public:
    explicit WordReader(ByteView stream) : stream_(stream) {}

    // Makes at least 56 bits ready; false once bits behind the end were skipped.
    [[nodiscard]] bool ensure() {
        if (next_ + sizeof(std::uint64_t) <= stream_.size()) {
            bits_ |= loadWord() << count_;
            next_ += (63U - count_) >> 3U;
            count_ |= 56U;
            return true;
        }
        while (count_ < 56U) {
            if (next_ < stream_.size()) {
                bits_ |= std::uint64_t{stream_[next_]} << count_;
            }
            ++next_;
            count_ += 8U;
        }
        return position() <= stream_.size() * 8;
    }

    [[nodiscard]] std::uint64_t bits() const { return bits_; }

    void skip(unsigned count) {
        bits_ >>= count;
        count_ -= count;
    }

    // The next `count` bits, which ensure() has made ready.
    [[nodiscard]] unsigned take(unsigned count) {
        const auto value = static_cast<unsigned>(bits_ & ((1U << count) - 1U));
        skip(count);
        return value;
    }

    // The position of the next bit, in bits.
    [[nodiscard]] std::size_t position() const { return next_ * 8 - count_; }

    // Goes on at a byte, at most the stream's size.
    void moveTo(std::size_t byte) {
        next_ = byte;
        bits_ = 0;
        count_ = 0;
    }

    // Goes on at a bit, at most the stream's last.
    void moveToBit(std::size_t bit) {
        moveTo(bit / 8);
        static_cast<void>(ensure());
        skip(static_cast<unsigned>(bit % 8));
    }

    // Skips to the next byte boundary and over a stored block's lengths and bytes (3.2.4).
    [[nodiscard]] bool skipStored() {
        const std::size_t start = (position() + 7) / 8;
        if (start + 4 > stream_.size()) {
            return false;
        }
        const auto length = loadLittleEndian<std::uint16_t>(stream_, start);
        const auto check = loadLittleEndian<std::uint16_t>(stream_, start + 2);
        if ((length ^ check) != 0xFFFFU || start + 4 + length > stream_.size()) {
            return false;
        }
        moveTo(start + 4 + length);
        return true;
    }

  private:
    [[nodiscard]] std::uint64_t loadWord() const {
        if constexpr (std::endian::native == std::endian::little) {
            std::uint64_t word = 0;
            std::memcpy(&word, stream_.data() + next_, sizeof(word));
            return word;
        } else {
            return loadLittleEndian<std::uint64_t>(stream_, next_);
        }
    }

    ByteView stream_;
    std::size_t next_ = 0;
    std::uint64_t bits_ = 0;
    unsigned count_ = 0;
};

std::optional<DeflateBlockWalker::Layout> DeflateBlockWalker::walk(ByteView stream,
                                                                   std::size_t frontBytes) {
    WordReader reader(stream);
    Layout layout;
    std::size_t left = frontBytes;
    while (true) {
        const std::size_t start = reader.position();
        if (!reader.ensure()) {
            return std::nullopt;
        }
        const bool last = reader.take(1) != 0;
        const unsigned type = reader.take(2);
        bool walked = false;
        if (type == kStoredBlock) {
            walked = left == 0 && reader.skipStored();
        } else if (type == kFixedBlock) {
            walked = setCodes(kFixedLiteralLengths, kFixedDistanceLengths) &&
                     walkCoded(reader, start, left, layout.front);
        } else if (type == kDynamicBlock) {
            walked =
                readDynamicCodes(stream, reader) && walkCoded(reader, start, left, layout.front);
        }
        if (!walked || reader.position() > stream.size() * 8) {
            return std::nullopt;
        }
        if (last) {
            layout.lastBlock = start;
            layout.end = reader.position();
            return left == 0 ? std::optional(layout) : std::nullopt;
        }
    }
}

bool DeflateBlockWalker::readDynamicCodes(ByteView stream, WordReader& reader) {
    const std::size_t start = reader.position();
    const ByteView rest = stream.subspan(start / 8);
    BitReader bits;
    bits.feed(rest);
    const auto skipped = static_cast<unsigned>(start % 8);
    if (!bits.fill(skipped)) {
        return false;
    }
    bits.drop(skipped);
    header_.begin();
    if (header_.read(bits) != InflateProgress::kDone) {
        return false;
    }
    reader.moveToBit((start / 8 + bits.position()) * 8 - bits.available());
    return setCodes(header_.literalLengths(), header_.distanceLengths());
}

bool DeflateBlockWalker::setCodes(std::span<const std::uint8_t> literalLengths,
                                  std::span<const std::uint8_t> distanceLengths) {
    constexpr auto kGaps = CodeGaps::kFewerThanTwoSymbols;
    if (!literalCode_.build(literalLengths, kGaps) ||
        !distanceCode_.build(distanceLengths, kGaps)) {
        return false;
    }
    fillLiteralTable();
    fillDistanceTable();
    return true;
}

void DeflateBlockWalker::fillLiteralTable() {
    singles_.fill({});
    literalCode_.forEach(
        kTableBits, [this](std::size_t symbol, unsigned length, std::size_t codeword) {
            const Single single{.length = static_cast<std::uint8_t>(length),
                                .step = stepOf(symbol, length)};
            if (single.step == 0) {
                return;
            }
            for (std::size_t i = codeword; i < singles_.size(); i += std::size_t{1} << length) {
                singles_[i] = single;
            }
        });
    for (std::size_t i = 0; i < kTableSize; ++i) {
        unsigned bits = 0;
        std::uint8_t step = kRare;
        while (bits < kTableBits) {
            const Single single = singles_[i >> bits];
            if (single.length == 0 || bits + single.length > kTableBits) {
                break;
            }
            step = static_cast<std::uint8_t>(bits + single.step);
            if (single.step != single.length) {  // not a literal
                break;
            }
            bits += single.length;
        }
        steps_[i] = step;
    }
}

void DeflateBlockWalker::fillDistanceTable() {
    const std::span<std::uint8_t> steps = std::span(steps_).subspan(kTableSize);
    std::fill(steps.begin(), steps.end(), kRare);
    distanceCode_.forEach(
        kTableBits, [steps](std::size_t symbol, unsigned length, std::size_t codeword) {
            const auto step = static_cast<std::uint8_t>(length + kDistanceRanges[symbol].bits);
            for (std::size_t i = codeword; i < steps.size(); i += std::size_t{1} << length) {
                steps[i] = step;
            }
        });
}

bool DeflateBlockWalker::walkCoded(WordReader& reader,
                                   std::size_t start,
                                   std::size_t& left,
                                   Front& front) const {
    if (left > 0) {
        front = {.block = start, .symbols = reader.position()};
        if (!walkFront(reader, left, front)) {
            return false;
        }
        if (left > 0) {
            return true;
        }
    }
    return walkSymbols(reader);
}

bool DeflateBlockWalker::walkFront(WordReader& reader, std::size_t& left, Front& front) const {
    while (left > 0) {
        // A literal, or a length and its distance: at most 15 + 5 + 15 + 13 bits.
        if (!reader.ensure()) {
            return false;
        }
        const Single single = singles_[reader.bits() & (kTableSize - 1)];
        if (single.length != 0 && single.step == single.length) {
            reader.skip(single.length);
            --left;
            continue;
        }
        const HuffmanSymbol symbol = literalCode_.find(reader.bits(), kLongestCode);
        if (symbol.kind != HuffmanSymbol::Kind::kFound) {
            return false;
        }
        reader.skip(symbol.length);
        if (symbol.value == kEndOfBlock) {
            return true;
        }
        if (symbol.value < kEndOfBlock) {
            --left;
            continue;
        }
        const std::size_t index = symbol.value - kFirstLength;
        if (index >= kLengthRanges.size()) {
            return false;
        }
        const std::size_t length =
            kLengthRanges[index].base + reader.take(kLengthRanges[index].bits);
        const unsigned distance = stepOfLongDistance(reader.bits());
        if (distance == 0) {
            return false;
        }
        reader.skip(distance);
        front.overhang = length - std::min(length, left);
        left -= std::min(length, left);
    }
    front.next = reader.position();
    return true;
}

bool DeflateBlockWalker::walkSymbols(WordReader& stream) const {
    WordReader reader = stream;  // so that it can live in registers
    unsigned step = 0;
    while (true) {
        // Of two steps at most one is a distance's: 15 + 13 bits; the other has up to 15 + 5.
        if (!reader.ensure()) {
            return false;
        }
        for (int i = 0; i < 2; ++i) {
            // What comes next cannot be predicted, so it chooses a table and not a branch.
            const unsigned table = step & kThenDistance;
            step =
                steps_[(reader.bits() & (kTableSize - 1)) | (table * (kTableSize / kThenDistance))];
            if (step == kRare) {
                step = table != 0 ? stepOfLongDistance(reader.bits()) : stepOfLong(reader.bits());
                if (step == 0) {
                    return false;
                }
            }
            reader.skip(step & kStepBits);
            if ((step & kRare) != 0) {
                stream = reader;
                return true;
            }
        }
    }
}

unsigned DeflateBlockWalker::stepOfLong(std::uint64_t bits) const {
    const HuffmanSymbol symbol = literalCode_.find(bits, kLongestCode);
    return symbol.kind == HuffmanSymbol::Kind::kFound ? stepOf(symbol.value, symbol.length) : 0;
}

unsigned DeflateBlockWalker::stepOfLongDistance(std::uint64_t bits) const {
    const HuffmanSymbol symbol = distanceCode_.find(bits, kLongestCode);
    return symbol.kind == HuffmanSymbol::Kind::kFound
               ? symbol.length + kDistanceRanges[symbol.value].bits
               : 0;
}

}  // namespace pellumar::archive
