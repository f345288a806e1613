#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// One compression method's decompressor, fed and emptied in pieces. Knows nothing of entries and
// offsets: its errors carry a code alone. Belongs to one thread.
class Decoder {
  public:
    struct Step {
        std::size_t consumed = 0;  // bytes taken from the front of `input`
        std::size_t produced = 0;  // bytes put at the front of `output`
        bool finished = false;     // the compressed stream has ended; later steps do nothing
    };

    virtual ~Decoder() = default;
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // Decodes until the input is used up, the output is full or the stream ends. A step with
    // neither consumed nor produced bytes and not finished means: more input, or more room, is
    // needed. Bytes behind the end of the stream are not consumed. kDamagedData for a stream that
    // no encoder writes, kOutOfMemory, kUnsupportedMethod for a variant that cannot be read; the
    // decoder can then only be reset or destroyed.
    [[nodiscard]] virtual Result<Step> decode(ByteView input, MutableBytes output) = 0;

    // Back to the start of a new stream of the same parameters.
    [[nodiscard]] virtual Result<> reset() = 0;
};

// What a decoder has to know of its entry before the first byte.
struct DecoderParameters {
    std::uint16_t method = 0;
    std::uint16_t flags = 0;  // the entry's general purpose bits; LZMA needs one of them
    // What the directory declares. A stream may turn out otherwise; the caller compares. Windows
    // are never made larger than this.
    std::uint64_t uncompressedSize = 0;
};

// Whether makeDecoder has a decoder for this method.
[[nodiscard]] bool isSupportedMethod(std::uint16_t method);

// The most bytes that `compressedSize` bytes of this method can become, or UINT64_MAX where the
// method has no such bound (or it does not fit).
[[nodiscard]] std::uint64_t mostUncompressedSize(std::uint16_t method,
                                                 std::uint64_t compressedSize);

// A decoder for one entry; kUnsupportedMethod if there is none.
[[nodiscard]] Result<std::unique_ptr<Decoder>> makeDecoder(const DecoderParameters& parameters);

}  // namespace pellumar::archive
