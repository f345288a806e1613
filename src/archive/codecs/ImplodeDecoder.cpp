#include "archive/codecs/ImplodeDecoder.h"

#include <algorithm>

#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::array<std::size_t, 3> kSymbolsOf = {256, 64, 64};  // 5.3.6
constexpr std::uint8_t kLongLength = 63;                          // eight more bits follow

}  // namespace

bool ShannonFanoCode::build(std::span<const std::uint8_t> lengths) {
    counts_.fill(0);
    for (const std::uint8_t length : lengths) {
        ++counts_[length];
    }
    std::uint32_t used = 0;
    std::array<std::size_t, kLongest + 1> starts{};
    std::size_t total = 0;
    for (unsigned length = 1; length <= kLongest; ++length) {
        used += std::uint32_t{counts_[length]} << (kLongest - length);
        starts[length] = total;
        total += counts_[length];
    }
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        symbols_[starts[lengths[symbol]]++] = static_cast<std::uint8_t>(symbol);
    }
    return used == 1U << kLongest;
}

// Inverted, it is a canonical code like DEFLATE's.
ShannonFanoCode::Symbol ShannonFanoCode::find(std::uint64_t bits, unsigned available) const {
    std::size_t code = 0;
    std::size_t first = 0;
    std::size_t index = 0;
    for (unsigned length = 1; length <= std::min(available, kLongest); ++length) {
        code |= (~bits >> (length - 1)) & 1U;
        const std::size_t count = counts_[length];
        if (code - first < count) {
            return {.length = length, .value = symbols_[index + (code - first)]};
        }
        index += count;
        first = (first + count) << 1U;
        code <<= 1U;
    }
    return {};
}

ImplodeDecoder::ImplodeDecoder(const DecoderParameters& parameters)
    : hasLiteralCode_((parameters.flags & format::kFlagImplodeLiteralCode) != 0),
      lowDistanceBits_((parameters.flags & format::kFlagImplodeLargeWindow) != 0 ? 7 : 6),
      stream_(parameters.uncompressedSize) {}

Result<> ImplodeDecoder::reset() {
    state_ = State::kCodeSize;
    code_ = hasLiteralCode_ ? kLiterals : kLengths;
    stream_.restart();
    return {};
}

ImplodeDecoder::Progress ImplodeDecoder::advance() {
    switch (state_) {
        case State::kCodeSize:
            return readCodeSize();
        case State::kCodeLengths:
            return readCodeLengths();
        case State::kSymbol:
            return readSymbol();
        case State::kDistance:
            return readDistance();
        case State::kLength:
            return readLength();
        case State::kRepeat:
            break;
    }
    return repeat();
}

ImplodeDecoder::Progress ImplodeDecoder::readCodeSize() {
    BitReader& bits = stream_.bits();
    if (!bits.fill(8)) {
        return Progress::kWaits;
    }
    lengthBytes_ = bits.peek(8) + std::size_t{1};
    bits.drop(8);
    symbols_ = 0;
    state_ = State::kCodeLengths;
    return Progress::kDone;
}

// A byte for each run: the length in the lower half, how many symbols have it in the upper one.
ImplodeDecoder::Progress ImplodeDecoder::readCodeLengths() {
    BitReader& bits = stream_.bits();
    const std::size_t wanted = kSymbolsOf[code_];
    if (lengthBytes_ > 0) {
        if (!bits.fill(8)) {
            return Progress::kWaits;
        }
        const auto length = static_cast<std::uint8_t>(bits.peek(4) + 1);
        const std::size_t run = (bits.peek(8) >> 4U) + std::size_t{1};
        bits.drop(8);
        if (run > wanted - symbols_) {
            return Progress::kDamaged;
        }
        std::fill_n(codeLengths_.begin() + static_cast<std::ptrdiff_t>(symbols_), run, length);
        symbols_ += run;
        --lengthBytes_;
        return Progress::kDone;
    }
    if (symbols_ != wanted ||
        !codes_[code_].build(std::span<const std::uint8_t>(codeLengths_).first(wanted))) {
        return Progress::kDamaged;
    }
    ++code_;
    state_ = code_ == kCodes ? State::kSymbol : State::kCodeSize;
    return Progress::kDone;
}

ShannonFanoCode::Symbol ImplodeDecoder::next(Code code, unsigned skipped) {
    BitReader& bits = stream_.bits();
    while (true) {
        if (bits.available() > skipped) {
            const auto symbol =
                codes_[code].find(bits.peek() >> skipped, bits.available() - skipped);
            if (symbol.length != 0) {
                return symbol;
            }
        }
        // One byte at a time: what is behind the stream's end may not be there to be given back.
        if (!bits.fill(bits.available() + 1)) {
            return {};
        }
    }
}

ImplodeDecoder::Progress ImplodeDecoder::readSymbol() {
    BitReader& bits = stream_.bits();
    if (!bits.fill(1) || stream_.isFull()) {
        return Progress::kWaits;
    }
    if (bits.peek(1) == 0) {
        bits.drop(1);
        state_ = State::kDistance;
        return Progress::kDone;
    }
    ShannonFanoCode::Symbol literal{.length = 8};
    if (hasLiteralCode_) {
        literal = next(kLiterals, 1);
    } else if (bits.fill(1 + literal.length)) {
        literal.value = static_cast<std::uint8_t>(bits.peek() >> 1U);
    } else {
        return Progress::kWaits;
    }
    if (literal.length == 0) {
        return Progress::kWaits;
    }
    bits.drop(1 + literal.length);
    stream_.put(literal.value);
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::readDistance() {
    BitReader& bits = stream_.bits();
    const auto high = next(kDistances, lowDistanceBits_);
    if (high.length == 0) {
        return Progress::kWaits;
    }
    distance_ = (std::size_t{high.value} << lowDistanceBits_) + bits.peek(lowDistanceBits_) + 1;
    bits.drop(lowDistanceBits_ + high.length);
    state_ = State::kLength;
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::readLength() {
    BitReader& bits = stream_.bits();
    const auto symbol = next(kLengths, 0);
    const unsigned more = symbol.value == kLongLength ? 8 : 0;
    if (symbol.length == 0 || !bits.fill(symbol.length + more)) {
        return Progress::kWaits;
    }
    bits.drop(symbol.length);
    // What is cheaper as literals is never a repetition, so lengths begin above (5.3.9).
    length_ = symbol.value + bits.peek(more) + (hasLiteralCode_ ? 3U : 2U);
    bits.drop(more);
    state_ = State::kRepeat;
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::repeat() {
    const Progress repeated = stream_.repeat(distance_, length_);
    if (repeated == Progress::kDone) {
        state_ = State::kSymbol;
    }
    return repeated;
}

}  // namespace pellumar::archive
