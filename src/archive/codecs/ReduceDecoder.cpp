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
      stream_(parameters.uncompressedSize) {}

Result<> ReduceDecoder::reset() {
    state_ = State::kFollowerCount;
    current_ = 255;
    last_ = 0;
    meaning_ = Meaning::kLiteral;
    stream_.restart();
    return {};
}

ReduceDecoder::Progress ReduceDecoder::advance() {
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
    const Progress repeated = stream_.repeat(distance_, length_);
    if (repeated == Progress::kDone) {
        state_ = State::kByte;
    }
    return repeated;
}

ReduceDecoder::Progress ReduceDecoder::readFollowerCount() {
    constexpr unsigned kBits = 6;
    BitReader& bits = stream_.bits();
    if (!bits.fill(kBits)) {
        return Progress::kWaits;
    }
    Followers& followers = followers_[current_];
    // No more than there is room for: more cannot be told apart by five bits.
    followers.count =
        static_cast<std::uint8_t>(std::min<std::size_t>(bits.peek(kBits), followers.bytes.size()));
    followers.bits = bitsFor(followers.count);
    bits.drop(kBits);
    follower_ = 0;
    state_ = State::kFollower;
    return Progress::kDone;
}

ReduceDecoder::Progress ReduceDecoder::readFollower() {
    Followers& followers = followers_[current_];
    if (follower_ < followers.count) {
        if (!stream_.bits().fill(8)) {
            return Progress::kWaits;
        }
        followers.bytes[follower_++] = static_cast<std::uint8_t>(stream_.bits().peek(8));
        stream_.bits().drop(8);
        return Progress::kDone;
    }
    state_ = current_ == 0 ? State::kByte : State::kFollowerCount;
    current_ -= current_ == 0 ? 0 : 1;
    return Progress::kDone;
}

ReduceDecoder::Progress ReduceDecoder::readByte() {
    // Whatever it means, it is read only if there is room for what it may put out.
    if (stream_.isFull()) {
        return Progress::kWaits;
    }
    const Followers& followers = followers_[last_];
    const bool guessed = followers.count > 0;
    if (guessed && !stream_.bits().fill(1)) {
        return Progress::kWaits;
    }
    const bool plain = !guessed || stream_.bits().peek(1) != 0;
    const unsigned head = guessed ? 1 : 0;
    const unsigned bits = plain ? 8 : followers.bits;
    if (!stream_.bits().fill(head + bits)) {
        return Progress::kWaits;
    }
    stream_.bits().drop(head);
    const std::uint32_t value = stream_.bits().peek(bits);
    stream_.bits().drop(bits);
    last_ = plain ? static_cast<std::uint8_t>(value)
                  : followers.bytes[std::min<std::size_t>(value, followers.bytes.size() - 1)];
    interpret(last_);
    return Progress::kDone;
}

void ReduceDecoder::interpret(std::uint8_t byte) {
    const unsigned lengthBits = 8 - factor_;
    const auto longest = static_cast<std::uint8_t>((1U << lengthBits) - 1);
    switch (meaning_) {
        case Meaning::kLiteral:
            if (byte == kEscape) {
                meaning_ = Meaning::kLengthAndDistance;
            } else {
                stream_.put(byte);
            }
            return;
        case Meaning::kLengthAndDistance:
            if (byte == 0) {
                stream_.put(kEscape);
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
