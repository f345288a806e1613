#include "archive/writing/DeflateBlockWalker.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace pellumar::archive {

namespace {

constexpr unsigned kLongestCodeword = 15;
constexpr std::size_t kMostLiterals = 286;  // 3.2.7: HLIT's range ends here
constexpr std::size_t kMostDistances = 30;
constexpr std::uint16_t kEndOfBlock = 256;

// Block types (3.2.3).
constexpr unsigned kStored = 0;
constexpr unsigned kFixed = 1;
constexpr unsigned kDynamic = 2;

// Extra bits of the length symbols 257 to 285 and of the distance symbols (3.2.5).
constexpr std::array<std::uint8_t, 29> kLengthExtra = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                       2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<std::uint8_t, kMostDistances> kDistanceExtra = {
    0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
    6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// The order in which the code length code's lengths come (3.2.7).
constexpr std::array<std::uint8_t, 19> kCodeLengthOrder =
    {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

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
    const std::size_t index = symbol - kEndOfBlock - 1;
    if (index >= kLengthExtra.size()) {
        return 0;
    }
    return static_cast<std::uint8_t>((length + kLengthExtra[index]) | kThenDistance);
}

// Codewords are sent from their highest bit (3.1.1), tables are looked up from the lowest.
std::uint32_t reversed(std::uint32_t codeword, unsigned length) {
    std::uint32_t result = 0;
    for (unsigned i = 0; i < length; ++i) {
        result = (result << 1U) | ((codeword >> i) & 1U);
    }
    return result;
}

// Calls use(symbol, length, reversed codeword) for every symbol of a canonical code (3.2.2).
template <typename Use>
void forEachCodeword(std::span<const std::uint8_t> lengths,
                     const std::array<std::uint16_t, 16>& count,
                     Use use) {
    std::array<std::uint32_t, kLongestCodeword + 1> next{};
    for (unsigned length = 1; length < kLongestCodeword; ++length) {
        next[length + 1] = (next[length] + count[length]) << 1U;
    }
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        const unsigned length = lengths[symbol];
        if (length != 0) {
            use(symbol, length, reversed(next[length]++, length));
        }
    }
}

}  // namespace

// The stream's bits, lowest first. Behind its end come zeros, and then ensure() fails.
class DeflateBlockWalker::BitReader {
  public:
    explicit BitReader(ByteView stream) : stream_(stream) {}

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

bool DeflateBlockWalker::Code::assign(std::span<const std::uint8_t> lengths) {
    count.fill(0);
    for (const std::uint8_t length : lengths) {
        ++count[length];
    }
    count[0] = 0;
    int left = 1;
    std::array<std::uint16_t, kLongestCodeword + 2> offsets{};
    for (unsigned length = 1; length <= kLongestCodeword; ++length) {
        left = 2 * left - count[length];
        if (left < 0) {
            return false;
        }
        offsets[length + 1] = static_cast<std::uint16_t>(offsets[length] + count[length]);
    }
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] != 0) {
            symbols[offsets[lengths[symbol]]++] = static_cast<std::uint16_t>(symbol);
        }
    }
    return true;
}

std::uint16_t DeflateBlockWalker::Code::decode(std::uint64_t bits, unsigned& length) const {
    std::uint32_t codeword = 0;
    std::uint32_t first = 0;
    std::uint32_t index = 0;
    for (length = 1; length <= kLongestCodeword; ++length) {
        codeword |= static_cast<std::uint32_t>(bits & 1U);
        bits >>= 1U;
        if (codeword < first + count[length]) {
            return symbols[index + codeword - first];
        }
        index += count[length];
        first = (first + count[length]) << 1U;
        codeword <<= 1U;
    }
    length = 0;
    return 0;
}

std::optional<DeflateBlockWalker::Layout> DeflateBlockWalker::walk(ByteView stream) {
    BitReader reader(stream);
    while (true) {
        const std::size_t start = reader.position();
        if (!reader.ensure()) {
            return std::nullopt;
        }
        const bool last = reader.take(1) != 0;
        const unsigned type = reader.take(2);
        bool walked = false;
        if (type == kStored) {
            walked = reader.skipStored();
        } else if (type == kFixed) {
            std::array<std::uint8_t, 288> literals{};  // 3.2.6
            std::fill_n(literals.begin(), 144, std::uint8_t{8});
            std::fill(literals.begin() + 144, literals.begin() + 256, std::uint8_t{9});
            std::fill(literals.begin() + 256, literals.begin() + 280, std::uint8_t{7});
            std::fill(literals.begin() + 280, literals.end(), std::uint8_t{8});
            std::array<std::uint8_t, kMostDistances> distances{};
            distances.fill(5);
            walked = setCodes(literals, distances) && walkSymbols(reader);
        } else if (type == kDynamic) {
            walked = readDynamicCodes(reader) && walkSymbols(reader);
        }
        if (!walked || reader.position() > stream.size() * 8) {
            return std::nullopt;
        }
        if (last) {
            return Layout{.lastBlock = start, .end = reader.position()};
        }
    }
}

bool DeflateBlockWalker::readDynamicCodes(BitReader& reader) {
    const std::size_t literals = reader.take(5) + 257;
    const std::size_t distances = reader.take(5) + 1;
    const std::size_t codeLengths = reader.take(4) + 4;
    if (literals > kMostLiterals || distances > kMostDistances) {
        return false;
    }
    std::array<std::uint8_t, kCodeLengthOrder.size()> codeLengthLengths{};
    for (std::size_t i = 0; i < codeLengths; ++i) {
        if (!reader.ensure()) {
            return false;
        }
        codeLengthLengths[kCodeLengthOrder[i]] = static_cast<std::uint8_t>(reader.take(3));
    }
    Code codeLengthCode;
    if (!codeLengthCode.assign(codeLengthLengths)) {
        return false;
    }
    std::array<std::uint8_t, kMostLiterals + kMostDistances> lengths{};
    for (std::size_t i = 0; i < literals + distances;) {
        unsigned length = 0;
        if (!reader.ensure()) {
            return false;
        }
        const std::uint16_t symbol = codeLengthCode.decode(reader.bits(), length);
        reader.skip(length);
        if (length == 0) {
            return false;
        }
        if (symbol < 16) {
            lengths[i++] = static_cast<std::uint8_t>(symbol);
            continue;
        }
        if (symbol == 16 && i == 0) {
            return false;
        }
        const std::uint8_t repeated = symbol == 16 ? lengths[i - 1] : std::uint8_t{0};
        const std::size_t count = symbol == 16   ? reader.take(2) + 3
                                  : symbol == 17 ? reader.take(3) + 3
                                                 : reader.take(7) + 11;
        if (i + count > literals + distances) {
            return false;
        }
        std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(i), count, repeated);
        i += count;
    }
    const std::span<const std::uint8_t> all(lengths);
    return setCodes(all.first(literals), all.subspan(literals, distances));
}

bool DeflateBlockWalker::setCodes(std::span<const std::uint8_t> literalLengths,
                                  std::span<const std::uint8_t> distanceLengths) {
    if (!literalCode_.assign(literalLengths) || !distanceCode_.assign(distanceLengths)) {
        return false;
    }
    fillLiteralTable(literalLengths);
    fillDistanceTable(distanceLengths);
    return true;
}

void DeflateBlockWalker::fillLiteralTable(std::span<const std::uint8_t> lengths) {
    singles_.fill({});
    forEachCodeword(lengths,
                    literalCode_.count,
                    [this](std::size_t symbol, unsigned length, std::uint32_t codeword) {
                        const Single single{.length = static_cast<std::uint8_t>(length),
                                            .step = stepOf(symbol, length)};
                        if (length > kTableBits || single.step == 0) {
                            return;
                        }
                        for (std::size_t i = codeword; i < singles_.size();
                             i += std::size_t{1} << length) {
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

void DeflateBlockWalker::fillDistanceTable(std::span<const std::uint8_t> lengths) {
    const std::span<std::uint8_t> steps = std::span(steps_).subspan(kTableSize);
    std::fill(steps.begin(), steps.end(), kRare);
    forEachCodeword(
        lengths,
        distanceCode_.count,
        [steps](std::size_t symbol, unsigned length, std::uint32_t codeword) {
            if (length > kTableBits) {
                return;
            }
            const auto step = static_cast<std::uint8_t>(length + kDistanceExtra[symbol]);
            for (std::size_t i = codeword; i < steps.size(); i += std::size_t{1} << length) {
                steps[i] = step;
            }
        });
}

bool DeflateBlockWalker::walkSymbols(BitReader& stream) const {
    BitReader reader = stream;  // so that it can live in registers
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
    unsigned length = 0;
    const std::uint16_t symbol = literalCode_.decode(bits, length);
    return length == 0 ? 0 : stepOf(symbol, length);
}

unsigned DeflateBlockWalker::stepOfLongDistance(std::uint64_t bits) const {
    unsigned length = 0;
    const std::uint16_t symbol = distanceCode_.decode(bits, length);
    return length == 0 ? 0 : length + kDistanceExtra[symbol];
}

}  // namespace pellumar::archive
