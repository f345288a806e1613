#include "archive/codecs/ReduceDecoder.h"

#include <algorithm>
#include <bit>

#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

// Introduces a repetition (5.2.5).
constexpr std::uint8_t kEscape = 144;
constexpr std::size_t kShortestRepeat = 3;

// B(N) of 5.2.3: the bits that number so many followers.
std::uint8_t bitsFor(std::uint8_t count) {
    return static_cast<std::uint8_t>(count < 3 ? 1 : std::bit_width(count - 1U));
}

}  // namespace

ReduceDecoder::ReduceDecoder(const DecoderParameters& parameters)
    : factor_(parameters.method - format::kMethodReduce1 + 1U),
      size_(parameters.uncompressedSize) {}

Result<Decoder::Step> ReduceDecoder::decode(ByteView input, MutableBytes output) {
    bits_.feed(input);
    output_.begin(output);
    while (left_ > 0 && advance()) {
    }
    if (left_ == 0) {
        bits_.giveBack();
    }
    output_.end();
    return Step{
        .consumed = bits_.position(), .produced = output_.produced(), .finished = left_ == 0};
}

Result<> ReduceDecoder::reset() {
    state_ = State::kFollowerCount;
    current_ = 255;
    last_ = 0;
    meaning_ = Meaning::kLiteral;
    left_ = size_;
    bits_.clear();
    output_.clear();
    return {};
}

bool ReduceDecoder::advance() {
    switch (state_) {
        case State::kFollowerCount:
            return readFollowerCount();
        case State::kFollower:
            return readFollower();
        case State::kByte:
            return readByte();
        case State::kRepeat:
            break;
    }
    const std::size_t repeated = output_.repeatOrZero(
        distance_, static_cast<std::size_t>(std::min<std::uint64_t>(length_, left_)));
    length_ -= repeated;
    left_ -= repeated;
    if (length_ == 0) {
        state_ = State::kByte;
    }
    return length_ == 0;
}

bool ReduceDecoder::readFollowerCount() {
    constexpr unsigned kBits = 6;
    if (!bits_.fill(kBits)) {
        return false;
    }
    Followers& followers = followers_[current_];
    // No more than there is room for: more cannot be told apart by five bits.
    followers.count =
        static_cast<std::uint8_t>(std::min<std::size_t>(bits_.peek(kBits), followers.bytes.size()));
    followers.bits = bitsFor(followers.count);
    bits_.drop(kBits);
    follower_ = 0;
    state_ = State::kFollower;
    return true;
}

bool ReduceDecoder::readFollower() {
    Followers& followers = followers_[current_];
    if (follower_ < followers.count) {
        if (!bits_.fill(8)) {
            return false;
        }
        followers.bytes[follower_++] = static_cast<std::uint8_t>(bits_.peek(8));
        bits_.drop(8);
        return true;
    }
    state_ = current_ == 0 ? State::kByte : State::kFollowerCount;
    current_ -= current_ == 0 ? 0 : 1;
    return true;
}

bool ReduceDecoder::readByte() {
    // Whatever it means, it is read only if there is room for what it may put out.
    if (output_.full()) {
        return false;
    }
    const Followers& followers = followers_[last_];
    const bool guessed = followers.count > 0;
    if (guessed && !bits_.fill(1)) {
        return false;
    }
    const bool plain = !guessed || bits_.peek(1) != 0;
    const unsigned head = guessed ? 1 : 0;
    const unsigned bits = plain ? 8 : followers.bits;
    if (!bits_.fill(head + bits)) {
        return false;
    }
    bits_.drop(head);
    const std::uint32_t value = bits_.peek(bits);
    bits_.drop(bits);
    last_ = plain ? static_cast<std::uint8_t>(value)
                  : followers.bytes[std::min<std::size_t>(value, followers.bytes.size() - 1)];
    interpret(last_);
    return true;
}

void ReduceDecoder::interpret(std::uint8_t byte) {
    const auto putOut = [this](std::uint8_t literal) {
        output_.put(literal);
        --left_;
    };
    const unsigned lengthBits = 8 - factor_;
    const auto longest = static_cast<std::uint8_t>((1U << lengthBits) - 1);
    switch (meaning_) {
        case Meaning::kLiteral:
            if (byte == kEscape) {
                meaning_ = Meaning::kLengthAndDistance;
            } else {
                putOut(byte);
            }
            return;
        case Meaning::kLengthAndDistance:
            if (byte == 0) {
                putOut(kEscape);
                meaning_ = Meaning::kLiteral;
                return;
            }
            lengthAndDistance_ = byte;
            length_ = byte & longest;
            meaning_ = length_ == longest ? Meaning::kMoreLength : Meaning::kDistance;
            return;
        case Meaning::kMoreLength:
            length_ += byte;
            meaning_ = Meaning::kDistance;
            return;
        case Meaning::kDistance:
            break;
    }
    distance_ = (std::size_t{lengthAndDistance_} >> lengthBits) * 256 + byte + 1;
    length_ += kShortestRepeat;
    meaning_ = Meaning::kLiteral;
    state_ = State::kRepeat;
}

}  // namespace pellumar::archive
