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
      size_(parameters.uncompressedSize) {}

Result<Decoder::Step> ImplodeDecoder::decode(ByteView input, MutableBytes output) {
    bits_.feed(input);
    output_.begin(output);
    Progress progress = Progress::kDone;
    while (left_ > 0 && progress == Progress::kDone) {
        progress = advance();
    }
    if (progress == Progress::kDamaged) {
        return failure(ErrorCode::kDamagedData);
    }
    if (left_ == 0) {
        bits_.giveBack();
    }
    output_.end();
    return Step{
        .consumed = bits_.position(), .produced = output_.produced(), .finished = left_ == 0};
}

Result<> ImplodeDecoder::reset() {
    state_ = State::kCodeSize;
    code_ = hasLiteralCode_ ? kLiterals : kLengths;
    left_ = size_;
    bits_.clear();
    output_.clear();
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
    if (!bits_.fill(8)) {
        return Progress::kWaits;
    }
    lengthBytes_ = bits_.peek(8) + std::size_t{1};
    bits_.drop(8);
    symbols_ = 0;
    state_ = State::kCodeLengths;
    return Progress::kDone;
}

// A byte for each run: the length in the lower half, how many symbols have it in the upper one.
ImplodeDecoder::Progress ImplodeDecoder::readCodeLengths() {
    const std::size_t wanted = kSymbolsOf[code_];
    if (lengthBytes_ > 0) {
        if (!bits_.fill(8)) {
            return Progress::kWaits;
        }
        const auto length = static_cast<std::uint8_t>(bits_.peek(4) + 1);
        const std::size_t run = (bits_.peek(8) >> 4U) + std::size_t{1};
        bits_.drop(8);
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
    while (true) {
        if (bits_.available() > skipped) {
            const auto symbol =
                codes_[code].find(bits_.peek() >> skipped, bits_.available() - skipped);
            if (symbol.length != 0) {
                return symbol;
            }
        }
        // One byte at a time: what is behind the stream's end may not be there to be given back.
        if (!bits_.fill(bits_.available() + 1)) {
            return {};
        }
    }
}

ImplodeDecoder::Progress ImplodeDecoder::readSymbol() {
    if (!bits_.fill(1) || output_.full()) {
        return Progress::kWaits;
    }
    if (bits_.peek(1) == 0) {
        bits_.drop(1);
        state_ = State::kDistance;
        return Progress::kDone;
    }
    ShannonFanoCode::Symbol literal{.length = 8};
    if (hasLiteralCode_) {
        literal = next(kLiterals, 1);
    } else if (bits_.fill(1 + literal.length)) {
        literal.value = static_cast<std::uint8_t>(bits_.peek() >> 1U);
    } else {
        return Progress::kWaits;
    }
    if (literal.length == 0) {
        return Progress::kWaits;
    }
    bits_.drop(1 + literal.length);
    output_.put(literal.value);
    --left_;
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::readDistance() {
    const auto high = next(kDistances, lowDistanceBits_);
    if (high.length == 0) {
        return Progress::kWaits;
    }
    distance_ = (std::size_t{high.value} << lowDistanceBits_) + bits_.peek(lowDistanceBits_) + 1;
    bits_.drop(lowDistanceBits_ + high.length);
    state_ = State::kLength;
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::readLength() {
    const auto symbol = next(kLengths, 0);
    const unsigned more = symbol.value == kLongLength ? 8 : 0;
    if (symbol.length == 0 || !bits_.fill(symbol.length + more)) {
        return Progress::kWaits;
    }
    bits_.drop(symbol.length);
    // What is cheaper as literals is never a repetition, so lengths begin above (5.3.9).
    length_ = symbol.value + bits_.peek(more) + (hasLiteralCode_ ? 3U : 2U);
    bits_.drop(more);
    state_ = State::kRepeat;
    return Progress::kDone;
}

ImplodeDecoder::Progress ImplodeDecoder::repeat() {
    const std::size_t repeated = output_.repeatOrZero(
        distance_, static_cast<std::size_t>(std::min<std::uint64_t>(length_, left_)));
    length_ -= repeated;
    left_ -= repeated;
    if (length_ > 0) {
        return Progress::kWaits;
    }
    state_ = State::kSymbol;
    return Progress::kDone;
}

}  // namespace pellumar::archive
