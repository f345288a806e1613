#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <type_traits>

// Views over raw bytes, and the little-endian integers that every ZIP record is made of
// (APPNOTE 4.4.1.1).
namespace pellumar::archive {

using ByteView = std::span<const std::uint8_t>;
using MutableBytes = std::span<std::uint8_t>;

// The same bytes, looked at as the other.
[[nodiscard]] inline std::string_view asText(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}
[[nodiscard]] inline ByteView asBytes(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Reads an unsigned little-endian integer at `offset`. The caller has checked that
// `offset + sizeof(T)` lies within `bytes`.
template <typename T>
[[nodiscard]] T loadLittleEndian(ByteView bytes, std::size_t offset = 0) {
    static_assert(std::is_unsigned_v<T>);
    T value = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    for (std::size_t i = sizeof(T); i-- > 0;) {
        value = static_cast<T>((static_cast<std::uint64_t>(value) << 8U) | bytes[offset + i]);
    }
    return value;
}

// Writes an unsigned little-endian integer at `offset`; the same duty for the caller.
template <typename T>
void storeLittleEndian(MutableBytes bytes, std::size_t offset, T value) {
    static_assert(std::is_unsigned_v<T>);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[offset + i] =
            static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> (8U * i));
    }
}

}  // namespace pellumar::archive
