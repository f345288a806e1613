#include "archive/codecs/TraditionalCipher.h"

#include <string.h>

namespace pellumar::archive {

namespace {

// One byte's step of the CRC-32, whose table serves as the cipher's.
constexpr std::array<std::uint32_t, 256> kCrcSteps = [] {
    std::array<std::uint32_t, 256> steps{};
    for (std::uint32_t i = 0; i < steps.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value >> 1U) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0);
        }
        steps[i] = value;
    }
    return steps;
}();

std::uint32_t step(std::uint32_t crc, std::uint32_t byte) {
    return kCrcSteps[(crc ^ byte) & 0xFFU] ^ (crc >> 8U);
}

}  // namespace

// By the steps and constants of APPNOTE 6.1.5.
TraditionalCipher::TraditionalCipher(const Password& password) {
    for (const char byte : password.text()) {
        update(static_cast<std::uint8_t>(byte));
    }
}

TraditionalCipher::~TraditionalCipher() {
    ::explicit_bzero(keys_.data(), sizeof keys_);
}

void TraditionalCipher::decrypt(MutableBytes bytes) {
    for (std::uint8_t& byte : bytes) {
        byte ^= next();
        update(byte);
    }
}

void TraditionalCipher::encrypt(MutableBytes bytes) {
    for (std::uint8_t& byte : bytes) {
        const std::uint8_t plain = byte;
        byte ^= next();
        update(plain);
    }
}

std::uint8_t TraditionalCipher::next() const {
    const std::uint32_t word = (keys_[2] | 2U) & 0xFFFFU;
    return static_cast<std::uint8_t>((word * (word ^ 1U)) >> 8U);
}

void TraditionalCipher::update(std::uint8_t plain) {
    keys_[0] = step(keys_[0], plain);
    keys_[1] = (keys_[1] + (keys_[0] & 0xFFU)) * 134775813U + 1;
    keys_[2] = step(keys_[2], keys_[1] >> 24U);
}

}  // namespace pellumar::archive
