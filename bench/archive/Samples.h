#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "archive/base/Bytes.h"

// Data to measure with; the same bytes on every machine.
namespace pellumar::bench {

enum class SampleKind : std::uint8_t {
    kText,     // words, of which few are frequent
    kRecords,  // tables of numbers, as programs hold them
    kNoise,    // nothing to find
};

[[nodiscard]] std::vector<std::uint8_t> makeSample(SampleKind kind, std::size_t size);

// A raw DEFLATE stream of these bytes, by zlib at its default level.
[[nodiscard]] std::vector<std::uint8_t> deflateByZlib(archive::ByteView content);

}  // namespace pellumar::bench
