#include "archive/codecs/PpmdDecoder.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kHeadSize = 6;

constexpr std::uint32_t kTop = 1U << 24U;
constexpr std::uint32_t kBottom = 1U << 15U;

}  // namespace

PpmdDecoder::PpmdDecoder(const DecoderParameters& parameters)
    : size_(parameters.uncompressedSize), mostMemory_(parameters.mostMemory) {}

Result<Decoder::Step> PpmdDecoder::decode(ByteView input, MutableBytes output) {
    input_ = input;
    position_ = 0;
    std::size_t produced = 0;
    if (headSize_ < kHeadSize && readHead()) {
        if (auto begun = begin(); !begun) {
            return passOn(begun);
        }
    }
    while (headSize_ == kHeadSize && normalize() && !ended_) {
        // There need not be an end marker behind the last byte.
        const bool atEnd = left_ == 0 && !escaped_ && position_ == input_.size();
        if (atEnd || (left_ > 0 && produced == output.size())) {
            break;
        }
        const Outcome outcome = codeStep();
        escaped_ = outcome == Outcome::kEscape;
        ended_ = outcome == Outcome::kEnd;
        if (outcome == Outcome::kDamaged || (outcome == Outcome::kSymbol && left_ == 0)) {
            return failure(ErrorCode::kDamagedData);
        }
        if (outcome == Outcome::kSymbol) {
            output[produced++] = symbol_;
            --left_;
        }
    }
    return Step{.consumed = position_, .produced = produced, .finished = ended_ || left_ == 0};
}

Result<> PpmdDecoder::reset() {
    head_ = 0;
    headSize_ = 0;
    escaped_ = false;
    ended_ = false;
    left_ = size_;
    return {};
}

bool PpmdDecoder::takeByte(std::uint8_t& byte) {
    if (position_ == input_.size()) {
        return false;
    }
    byte = input_[position_++];
    return true;
}

bool PpmdDecoder::readHead() {
    std::uint8_t byte = 0;
    while (headSize_ < kHeadSize && takeByte(byte)) {
        head_ = head_ << 8U | byte;
        ++headSize_;
    }
    return headSize_ == kHeadSize;
}

Result<> PpmdDecoder::begin() {
    const auto parameters =
        static_cast<unsigned>((head_ >> 40U & 0xFFU) | (head_ >> 32U & 0xFFU) << 8U);
    const unsigned order = (parameters & 0xFU) + 1;
    const std::uint32_t memory = ((parameters >> 4U & 0xFFU) + 1) << 20U;
    const unsigned whenFull = parameters >> 12U;
    if (order < PpmdModel::kShortestOrder || whenFull > 1) {
        return failure(ErrorCode::kUnsupportedMethod);
    }
    if (memory > mostMemory_ || !model_.create(memory)) {
        return failure(ErrorCode::kOutOfMemory);
    }
    model_.start(order,
                 whenFull == 0 ? PpmdModel::WhenFull::kStartAnew : PpmdModel::WhenFull::kCutOff);
    low_ = 0;
    range_ = 0xFFFFFFFF;
    code_ = static_cast<std::uint32_t>(head_);
    return {};
}

// Can be asked again with more input: what it has changed meanwhile it would change again.
bool PpmdDecoder::normalize() {
    while (true) {
        if ((low_ ^ (low_ + range_)) >= kTop) {
            if (range_ >= kBottom) {
                return true;
            }
            range_ = (0U - low_) & (kBottom - 1);
        }
        std::uint8_t byte = 0;
        if (!takeByte(byte)) {
            return false;
        }
        code_ = code_ << 8U | byte;
        range_ <<= 8U;
        low_ <<= 8U;
    }
}

std::uint32_t PpmdDecoder::threshold(std::uint32_t total) {
    range_ /= total;
    return range_ == 0 ? total : code_ / range_;
}

void PpmdDecoder::narrow(std::uint32_t start, std::uint32_t size) {
    low_ += start * range_;
    code_ -= start * range_;
    range_ *= size;
}

PpmdDecoder::Outcome PpmdDecoder::codeBinary() {
    constexpr std::uint32_t kTotal = 1U << PpmdModel::kBinaryBits;
    const std::uint32_t chance = model_.binaryChance();
    const std::uint32_t count = threshold(kTotal);
    if (count < chance) {
        narrow(0, chance);
        symbol_ = model_.takeBinary();
        return Outcome::kSymbol;
    }
    narrow(chance, kTotal - chance);
    model_.escapeBinary();
    return Outcome::kEscape;
}

PpmdDecoder::Outcome PpmdDecoder::codeStep() {
    if (escaped_) {
        if (!model_.shorten()) {
            return Outcome::kEnd;
        }
    } else if (model_.isBinary()) {
        return codeBinary();
    }
    model_.choose(choice_);
    const std::uint32_t count = threshold(choice_.total);
    if (count >= choice_.total) {
        return Outcome::kDamaged;
    }
    if (count >= choice_.statesTotal) {
        narrow(choice_.statesTotal, choice_.total - choice_.statesTotal);
        model_.escape(choice_);
        return Outcome::kEscape;
    }
    std::uint32_t start = 0;
    unsigned index = 0;
    while (start + choice_.states[index].frequency <= count) {
        start += choice_.states[index++].frequency;
    }
    narrow(start, choice_.states[index].frequency);
    symbol_ = choice_.states[index].symbol;
    model_.take(choice_, index);
    return Outcome::kSymbol;
}

}  // namespace pellumar::archive
