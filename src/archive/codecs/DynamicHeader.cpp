#include "archive/codecs/DynamicHeader.h"

#include <algorithm>

#include "archive/codecs/DeflateFormat.h"

namespace pellumar::archive {

namespace {

// The order in which the lengths of the code length code are given.
constexpr std::array<std::uint8_t, 19>
    kOrder{16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

// Symbols over 15 say that a length comes several times; so many bits say how often.
constexpr std::size_t kRepeatPrevious = 16;
constexpr std::array<std::uint8_t, 3> kRepeatBits{2, 3, 7};
constexpr std::array<std::uint8_t, 3> kRepeatBase{3, 3, 11};

}  // namespace

void DynamicHeader::begin() {
    stage_ = Stage::kCounts;
    index_ = 0;
    codeLengthLengths_.fill(0);
}

InflateProgress DynamicHeader::read(BitReader& bits) {
    if (stage_ == Stage::kCounts) {
        if (const InflateProgress progress = readCounts(bits); progress != InflateProgress::kDone) {
            return progress;
        }
        stage_ = Stage::kCodeLengthCode;
    }
    if (stage_ == Stage::kCodeLengthCode) {
        if (const InflateProgress progress = readCodeLengthCode(bits);
            progress != InflateProgress::kDone) {
            return progress;
        }
        stage_ = Stage::kLengths;
        index_ = 0;
    }
    return readLengths(bits);
}

InflateProgress DynamicHeader::readCounts(BitReader& bits) {
    if (!bits.fill(14)) {
        return InflateProgress::kNeedsInput;
    }
    literals_ = bits.peek(5) + 257;
    bits.drop(5);
    distances_ = bits.peek(5) + 1;
    bits.drop(5);
    codeLengthCodes_ = bits.peek(4) + 4;
    bits.drop(4);
    return literals_ <= kMostLiterals && distances_ <= distanceCodes_ ? InflateProgress::kDone
                                                                      : InflateProgress::kDamaged;
}

InflateProgress DynamicHeader::readCodeLengthCode(BitReader& bits) {
    for (; index_ < codeLengthCodes_; ++index_) {
        if (!bits.fill(3)) {
            return InflateProgress::kNeedsInput;
        }
        codeLengthLengths_[kOrder[index_]] = static_cast<std::uint8_t>(bits.peek(3));
        bits.drop(3);
    }
    return table_.build(codeLengthLengths_, CodeGaps::kNone) ? InflateProgress::kDone
                                                             : InflateProgress::kDamaged;
}

InflateProgress DynamicHeader::readLengths(BitReader& bits) {
    using Kind = HuffmanSymbol::Kind;
    while (index_ < literals_ + distances_) {
        static_cast<void>(bits.fill(kLongestCode));
        const HuffmanSymbol symbol = table_.find(bits.peek(), bits.available());
        if (symbol.kind != Kind::kFound) {
            return symbol.kind == Kind::kNeedsBits ? InflateProgress::kNeedsInput
                                                   : InflateProgress::kDamaged;
        }
        if (symbol.value < kRepeatPrevious) {
            bits.drop(symbol.length);
            lengths_[index_++] = static_cast<std::uint8_t>(symbol.value);
            continue;
        }
        const unsigned extraBits = kRepeatBits[symbol.value - kRepeatPrevious];
        if (!bits.fill(symbol.length + extraBits)) {
            return InflateProgress::kNeedsInput;
        }
        bits.drop(symbol.length);
        const std::size_t extra = bits.peek(extraBits);
        bits.drop(extraBits);
        if (!repeat(symbol.value, extra)) {
            return InflateProgress::kDamaged;
        }
    }
    return lengths_[kEndOfBlock] != 0 ? InflateProgress::kDone : InflateProgress::kDamaged;
}

// Sets what one of the repeating symbols says; false if there is nothing to repeat or no place.
bool DynamicHeader::repeat(std::size_t symbol, std::size_t extra) {
    const std::size_t count = kRepeatBase[symbol - kRepeatPrevious] + extra;
    if (count > literals_ + distances_ - index_) {
        return false;
    }
    std::uint8_t length = 0;
    if (symbol == kRepeatPrevious) {
        if (index_ == 0) {
            return false;
        }
        length = lengths_[index_ - 1];
    }
    std::fill_n(lengths_.data() + index_, count, length);
    index_ += count;
    return true;
}

}  // namespace pellumar::archive
