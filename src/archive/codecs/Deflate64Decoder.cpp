#include "archive/codecs/Deflate64Decoder.h"

#include <algorithm>
#include <array>

namespace pellumar::archive {

namespace {

constexpr std::uint16_t kEndOfBlock = 256;
constexpr std::size_t kFirstLength = 257;

// A length or distance is `base` plus the number in the `bits` behind its code.
struct Range {
    std::uint32_t base;
    std::uint8_t bits;
};

// RFC 1951, 3.2.5.
constexpr std::array<Range, 29> kLengths{
    {{3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
     {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
     {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}}};
// What the last of them means in Deflate64.
constexpr Range kLongLength{3, 16};

// The last two are Deflate64's alone.
constexpr std::array<Range, 32> kDistances{
    {{1, 0},      {2, 0},      {3, 0},      {4, 0},     {5, 1},     {7, 1},     {9, 2},
     {13, 2},     {17, 3},     {25, 3},     {33, 4},    {49, 4},    {65, 5},    {97, 5},
     {129, 6},    {193, 6},    {257, 7},    {385, 7},   {513, 8},   {769, 8},   {1025, 9},
     {1537, 9},   {2049, 10},  {3073, 10},  {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12},
     {16385, 13}, {24577, 13}, {32769, 14}, {49153, 14}}};

constexpr std::size_t distanceCodes(DeflateVariant variant) {
    return variant == DeflateVariant::kDeflate64 ? 32 : 30;
}

// Code lengths of blocks with fixed codes (RFC 1951, 3.2.6). The last literals and, in DEFLATE, the
// last distances stand for nothing, but take part in the code.
constexpr std::array<std::uint8_t, HuffmanTable::kMostSymbols> makeFixedLiterals() {
    std::array<std::uint8_t, HuffmanTable::kMostSymbols> lengths{};
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        if (symbol < 144 || symbol >= 280) {
            lengths[symbol] = 8;
        } else {
            lengths[symbol] = symbol < 256 ? 9 : 7;
        }
    }
    return lengths;
}

constexpr auto kFixedLiterals = makeFixedLiterals();
constexpr std::size_t kFixedDistances = 32;
constexpr std::uint8_t kFixedDistanceLength = 5;

InflateProgress progressOf(HuffmanTable::Symbol::Kind kind) {
    switch (kind) {
        case HuffmanTable::Symbol::Kind::kFound:
            return InflateProgress::kDone;
        case HuffmanTable::Symbol::Kind::kNeedsBits:
            return InflateProgress::kNeedsInput;
        case HuffmanTable::Symbol::Kind::kInvalid:
            break;
    }
    return InflateProgress::kDamaged;
}

}  // namespace

Deflate64Decoder::Deflate64Decoder(DeflateVariant variant)
    : variant_(variant), header_(distanceCodes(variant)) {}

Result<Decoder::Step> Deflate64Decoder::decode(ByteView input, MutableBytes output) {
    bits_.feed(input);
    output_.begin(output);
    InflateProgress progress = InflateProgress::kDone;
    while (progress == InflateProgress::kDone && state_ != State::kFinished) {
        progress = advance();
    }
    if (progress == InflateProgress::kDamaged) {
        return failure(ErrorCode::kDamagedData);
    }
    // Bits that wait for more input begin a symbol; all others may lie behind the stream's end.
    if (progress != InflateProgress::kNeedsInput) {
        bits_.giveBack();
    }
    output_.end();
    return Step{.consumed = bits_.position(),
                .produced = output_.produced(),
                .finished = state_ == State::kFinished};
}

Result<> Deflate64Decoder::reset() {
    state_ = State::kBlockHeader;
    bits_.clear();
    output_.clear();
    return {};
}

InflateProgress Deflate64Decoder::advance() {
    switch (state_) {
        case State::kBlockHeader:
            return readBlockHeader();
        case State::kStoredSize:
            return readStoredSize();
        case State::kStoredBytes:
            return copyStored();
        case State::kDynamicHeader:
            return readDynamicHeader();
        case State::kSymbols:
            return decodeSymbols();
        case State::kDistance:
            return decodeDistance();
        case State::kMatch:
            return copyMatch();
        case State::kFinished:
            break;
    }
    return InflateProgress::kDone;
}

InflateProgress Deflate64Decoder::readBlockHeader() {
    if (!bits_.fill(3)) {
        return InflateProgress::kNeedsInput;
    }
    const std::uint32_t header = bits_.peek(3);
    bits_.drop(3);
    lastBlock_ = (header & 1U) != 0;
    switch (header >> 1U) {
        case 0:
            bits_.align();
            state_ = State::kStoredSize;
            return InflateProgress::kDone;
        case 1:
            state_ = State::kSymbols;
            return useFixedCodes() ? InflateProgress::kDone : InflateProgress::kDamaged;
        case 2:
            header_.begin();
            state_ = State::kDynamicHeader;
            return InflateProgress::kDone;
        default:
            return InflateProgress::kDamaged;
    }
}

InflateProgress Deflate64Decoder::readStoredSize() {
    if (!bits_.fill(32)) {
        return InflateProgress::kNeedsInput;
    }
    const std::uint32_t size = bits_.peek(16);
    bits_.drop(16);
    const std::uint32_t inverted = bits_.peek(16);
    bits_.drop(16);
    if (size != (inverted ^ 0xFFFFU)) {
        return InflateProgress::kDamaged;
    }
    // The size is given on a byte boundary, so nothing is held behind it.
    length_ = size;
    state_ = State::kStoredBytes;
    return InflateProgress::kDone;
}

InflateProgress Deflate64Decoder::copyStored() {
    const MutableBytes room = output_.room();
    const std::size_t copied = bits_.copy(room.first(std::min(length_, room.size())));
    output_.advance(copied);
    length_ -= copied;
    if (length_ > 0) {
        return output_.full() ? InflateProgress::kNeedsRoom : InflateProgress::kNeedsInput;
    }
    endBlock();
    return InflateProgress::kDone;
}

InflateProgress Deflate64Decoder::readDynamicHeader() {
    const InflateProgress progress = header_.read(bits_);
    if (progress != InflateProgress::kDone) {
        return progress;
    }
    constexpr auto kGaps = HuffmanTable::Gaps::kFewerThanTwoSymbols;
    state_ = State::kSymbols;
    return literals_.build(header_.literalLengths(), kGaps) &&
                   distances_.build(header_.distanceLengths(), kGaps)
               ? InflateProgress::kDone
               : InflateProgress::kDamaged;
}

bool Deflate64Decoder::useFixedCodes() {
    std::array<std::uint8_t, kFixedDistances> distances{};
    distances.fill(kFixedDistanceLength);
    return literals_.build(kFixedLiterals, HuffmanTable::Gaps::kNone) &&
           distances_.build(distances, HuffmanTable::Gaps::kNone);
}

InflateProgress Deflate64Decoder::decodeSymbols() {
    while (true) {
        static_cast<void>(bits_.fill(HuffmanTable::kLongestCode));
        const HuffmanTable::Symbol symbol = literals_.find(bits_.peek(), bits_.available());
        if (symbol.kind != HuffmanTable::Symbol::Kind::kFound) {
            return progressOf(symbol.kind);
        }
        if (symbol.value > kEndOfBlock) {
            return decodeLength(symbol);
        }
        if (symbol.value == kEndOfBlock) {
            bits_.drop(symbol.length);
            endBlock();
            return InflateProgress::kDone;
        }
        if (output_.full()) {
            return InflateProgress::kNeedsRoom;
        }
        bits_.drop(symbol.length);
        output_.put(static_cast<std::uint8_t>(symbol.value));
    }
}

InflateProgress Deflate64Decoder::decodeLength(const HuffmanTable::Symbol& symbol) {
    const std::size_t code = symbol.value - kFirstLength;
    if (code >= kLengths.size()) {
        return InflateProgress::kDamaged;
    }
    const bool isLong = variant_ == DeflateVariant::kDeflate64 && code == kLengths.size() - 1;
    const Range range = isLong ? kLongLength : kLengths[code];
    if (!bits_.fill(symbol.length + range.bits)) {
        return InflateProgress::kNeedsInput;
    }
    bits_.drop(symbol.length);
    length_ = range.base + bits_.peek(range.bits);
    bits_.drop(range.bits);
    state_ = State::kDistance;
    return InflateProgress::kDone;
}

InflateProgress Deflate64Decoder::decodeDistance() {
    static_cast<void>(bits_.fill(HuffmanTable::kLongestCode));
    const HuffmanTable::Symbol symbol = distances_.find(bits_.peek(), bits_.available());
    if (symbol.kind != HuffmanTable::Symbol::Kind::kFound) {
        return progressOf(symbol.kind);
    }
    if (symbol.value >= distanceCodes(variant_)) {
        return InflateProgress::kDamaged;
    }
    const Range range = kDistances[symbol.value];
    if (!bits_.fill(symbol.length + range.bits)) {
        return InflateProgress::kNeedsInput;
    }
    bits_.drop(symbol.length);
    distance_ = range.base + bits_.peek(range.bits);
    bits_.drop(range.bits);
    if (distance_ > output_.reach()) {
        return InflateProgress::kDamaged;
    }
    state_ = State::kMatch;
    return InflateProgress::kDone;
}

InflateProgress Deflate64Decoder::copyMatch() {
    length_ -= output_.repeat(distance_, length_);
    if (length_ > 0) {
        return InflateProgress::kNeedsRoom;
    }
    state_ = State::kSymbols;
    return InflateProgress::kDone;
}

void Deflate64Decoder::endBlock() {
    state_ = State::kBlockHeader;
    if (lastBlock_) {
        bits_.align();
        state_ = State::kFinished;
    }
}

}  // namespace pellumar::archive
