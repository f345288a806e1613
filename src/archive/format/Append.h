#pragma once

#include <type_traits>
#include <vector>

#include "archive/base/Bytes.h"

namespace pellumar::archive::format {

// Appends an unsigned integer in little-endian order.
template <typename T>
void append(std::vector<std::uint8_t>& out, T value) {
    static_assert(std::is_unsigned_v<T>);
    const std::size_t offset = out.size();
    out.resize(offset + sizeof(T));
    storeLittleEndian(MutableBytes(out), offset, value);
}

inline void append(std::vector<std::uint8_t>& out, ByteView bytes) {
    out.insert(out.end(), bytes.begin(), bytes.end());
}

}  // namespace pellumar::archive::format
