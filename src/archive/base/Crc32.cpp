#include "archive/base/Crc32.h"

#include <isa-l/crc.h>

#include <array>

namespace pellumar::archive {

namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320U;
// x^0 as a reflected polynomial: the highest bit is the lowest power.
constexpr std::uint32_t kOne = 0x80000000U;

constexpr std::array<std::uint32_t, 256> makeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? (value >> 1U) ^ kPolynomial : value >> 1U;
        }
        table[byte] = value;
    }
    return table;
}

constexpr auto kTable = makeTable();

// The product of two reflected polynomials modulo the CRC's.
constexpr std::uint32_t multiply(std::uint32_t a, std::uint32_t b) {
    std::uint32_t product = 0;
    for (std::uint32_t bit = kOne; bit != 0; bit >>= 1U) {
        if ((a & bit) != 0) {
            product ^= b;
        }
        b = (b & 1U) != 0 ? (b >> 1U) ^ kPolynomial : b >> 1U;
    }
    return product;
}

}  // namespace

std::uint32_t crc32(std::uint32_t crc, ByteView bytes) {
    // ISA-L chooses by processor at the first call: folding in vectors, or tables.
    return crc32_gzip_refl(crc, bytes.data(), bytes.size());
}

std::uint32_t crc32Plain(std::uint32_t crc, ByteView bytes) {
    std::uint32_t value = ~crc;
    for (const std::uint8_t byte : bytes) {
        value = kTable[(value ^ byte) & 0xFFU] ^ (value >> 8U);
    }
    return ~value;
}

std::uint32_t crc32Combine(std::uint32_t first, std::uint32_t second, std::uint64_t secondLength) {
    // Appending n zero bytes multiplies by x^(8n); square and multiply from x^8.
    std::uint32_t power = kOne >> 8U;
    std::uint32_t shift = kOne;
    for (std::uint64_t n = secondLength; n != 0; n >>= 1U) {
        if ((n & 1U) != 0) {
            shift = multiply(shift, power);
        }
        power = multiply(power, power);
    }
    return multiply(shift, first) ^ second;
}

}  // namespace pellumar::archive
