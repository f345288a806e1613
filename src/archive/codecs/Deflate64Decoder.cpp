#include "archive/codecs/Deflate64Decoder.h"

#include <algorithm>

#include "archive/codecs/DeflateFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t distanceCodes(DeflateVariant variant) {
    return variant == DeflateVariant::kDeflate64 ? kDeflate64Distances : kDeflateDistances;
}

InflateProgress progressOf(HuffmanSymbol::Kind kind) {
    switch (kind) {
        case HuffmanSymbol::Kind::kFound:
            return InflateProgress::kDone;
        case HuffmanSymbol::Kind::kNeedsBits:
            return InflateProgress::kNeedsInput;
        case HuffmanSymbol::Kind::kInvalid:
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
        case kStoredBlock:
            bits_.align();
            state_ = State::kStoredSize;
            return InflateProgress::kDone;
        case kFixedBlock:
            state_ = State::kSymbols;
            return useFixedCodes() ? InflateProgress::kDone : InflateProgress::kDamaged;
        case kDynamicBlock:
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
    constexpr auto kGaps = CodeGaps::kFewerThanTwoSymbols;
    state_ = State::kSymbols;
    return literals_.build(header_.literalLengths(), kGaps) &&
                   distances_.build(header_.distanceLengths(), kGaps)
               ? InflateProgress::kDone
               : InflateProgress::kDamaged;
}

bool Deflate64Decoder::useFixedCodes() {
    return literals_.build(kFixedLiteralLengths, CodeGaps::kNone) &&
           distances_.build(kFixedDistanceLengths, CodeGaps::kNone);
}

InflateProgress Deflate64Decoder::decodeSymbols() {
    while (true) {
        static_cast<void>(bits_.fill(kLongestCode));
        const HuffmanSymbol symbol = literals_.find(bits_.peek(), bits_.available());
        if (symbol.kind != HuffmanSymbol::Kind::kFound) {
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

InflateProgress Deflate64Decoder::decodeLength(const HuffmanSymbol& symbol) {
    const std::size_t code = symbol.value - kFirstLength;
    if (code >= kLengthRanges.size()) {
        return InflateProgress::kDamaged;
    }
    const bool isLong = variant_ == DeflateVariant::kDeflate64 && code == kLengthRanges.size() - 1;
    const DeflateRange range = isLong ? kDeflate64LongLength : kLengthRanges[code];
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
    static_cast<void>(bits_.fill(kLongestCode));
    const HuffmanSymbol symbol = distances_.find(bits_.peek(), bits_.available());
    if (symbol.kind != HuffmanSymbol::Kind::kFound) {
        return progressOf(symbol.kind);
    }
    if (symbol.value >= distanceCodes(variant_)) {
        return InflateProgress::kDamaged;
    }
    const DeflateRange range = kDistanceRanges[symbol.value];
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
