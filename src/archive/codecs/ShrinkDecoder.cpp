#include "archive/codecs/ShrinkDecoder.h"

#include <algorithm>

namespace pellumar::archive {

namespace {

constexpr std::uint16_t kControl = 256;
constexpr std::uint16_t kLongerCodes = 1;
constexpr std::uint16_t kClear = 2;
constexpr std::size_t kFirstString = 257;
constexpr unsigned kShortestCode = 9;

}  // namespace

ShrinkDecoder::ShrinkDecoder(const DecoderParameters& parameters)
    : size_(parameters.uncompressedSize) {}

Result<Decoder::Step> ShrinkDecoder::decode(ByteView input, MutableBytes output) {
    bits_.feed(input);
    std::size_t produced = 0;
    while (true) {
        const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(
            std::min(string_.size() - stringStart_, output.size() - produced), left_));
        std::copy_n(string_.begin() + static_cast<std::ptrdiff_t>(stringStart_),
                    size,
                    output.begin() + static_cast<std::ptrdiff_t>(produced));
        stringStart_ += size;
        produced += size;
        left_ -= size;
        if (left_ == 0 || stringStart_ < string_.size() || produced == output.size() ||
            !bits_.fill(codeSize_)) {
            break;
        }
        const auto code = static_cast<std::uint16_t>(bits_.peek(codeSize_));
        bits_.drop(codeSize_);
        if (!take(code)) {
            return failure(ErrorCode::kDamagedData);
        }
    }
    if (left_ == 0) {
        bits_.giveBack();
    }
    return Step{.consumed = bits_.position(), .produced = produced, .finished = left_ == 0};
}

Result<> ShrinkDecoder::reset() {
    prefixes_.fill(kFree);
    nextFree_ = kFirstString;
    codeSize_ = kShortestCode;
    isControl_ = false;
    isFirst_ = true;
    stringStart_ = string_.size();
    left_ = size_;
    bits_.clear();
    return {};
}

bool ShrinkDecoder::take(std::uint16_t code) {
    if (isControl_) {
        isControl_ = false;
        return control(code);
    }
    if (code == kControl) {
        isControl_ = true;
        return true;
    }
    if (isFirst_) {
        isFirst_ = false;
        previous_ = code;
        return code < kControl && spell(code);
    }
    while (nextFree_ < kCodes && prefixes_[nextFree_] != kFree) {
        ++nextFree_;
    }
    // The string that this very code completes: the previous one and its own first byte.
    if (code == nextFree_) {
        string_.back() = 0;
        stringStart_ = string_.size() - 1;
        if (!spell(previous_)) {
            return false;
        }
        string_.back() = string_[stringStart_];
    } else if (!spell(code)) {
        return false;
    }
    addString(string_[stringStart_]);
    previous_ = code;
    return true;
}

bool ShrinkDecoder::control(std::uint16_t command) {
    if (command == kLongerCodes) {
        return ++codeSize_ <= kLongestCode;
    }
    if (command == kClear) {
        clearLeaves();
        return true;
    }
    return false;
}

bool ShrinkDecoder::spell(std::uint16_t code) {
    // A prefix that was cleared may have become another string since, its own continuation too.
    while (code > kControl) {
        if (prefixes_[code] == kFree || stringStart_ == 0) {
            return false;
        }
        string_[--stringStart_] = suffixes_[code];
        code = prefixes_[code];
    }
    if (code == kControl || stringStart_ == 0) {
        return false;
    }
    string_[--stringStart_] = static_cast<std::uint8_t>(code);
    return true;
}

void ShrinkDecoder::clearLeaves() {
    std::array<bool, kCodes> isPrefix{};
    for (std::size_t code = kFirstString; code < kCodes; ++code) {
        if (prefixes_[code] != kFree) {
            isPrefix[prefixes_[code]] = true;
        }
    }
    for (std::size_t code = kFirstString; code < kCodes; ++code) {
        if (!isPrefix[code]) {
            prefixes_[code] = kFree;
        }
    }
    nextFree_ = kFirstString;
}

void ShrinkDecoder::addString(std::uint8_t last) {
    if (nextFree_ < kCodes) {
        prefixes_[nextFree_] = previous_;
        suffixes_[nextFree_] = last;
    }
}

}  // namespace pellumar::archive
