#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/codecs/Decoder.h"

// Compressed data for the decoders' tests, made by the libraries' own encoders.
namespace pellumar::archive::test {

using Bytes = std::vector<std::uint8_t>;

// What an entry's data is: bytes, and what they should become.
struct Encoded {
    std::string name;
    DecoderParameters parameters;
    Bytes compressed;
    Bytes plain;
};

[[nodiscard]] Bytes noise(std::size_t size, unsigned seed);
// Like text: words drawn from a small vocabulary.
[[nodiscard]] Bytes words(std::size_t size, unsigned seed);
// Runs, and repetitions from far back.
[[nodiscard]] Bytes runs(std::size_t size, unsigned seed);

// 0 to 12.
[[nodiscard]] Bytes deflate(ByteView plain, int level);
[[nodiscard]] Bytes bzip2(ByteView plain);
// With the header that ZIP puts before it.
[[nodiscard]] Bytes lzma(ByteView plain, bool endMarker, std::uint32_t dictionary = 1U << 20U);
[[nodiscard]] Bytes xz(ByteView plain);
[[nodiscard]] Bytes zstandard(ByteView plain);

// The first entry of an archive that 7zz makes with one of its methods.
[[nodiscard]] Encoded bySevenZip(const std::string& method,
                                 const Bytes& plain,
                                 const std::vector<std::string>& options = {});

// Each method with each of a few kinds of data, `size` bytes of it; Deflate64 and PPMd only with
// 7zz.
[[nodiscard]] std::vector<Encoded> everyMethod(std::size_t size);

}  // namespace pellumar::archive::test
