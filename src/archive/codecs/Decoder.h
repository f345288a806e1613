#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// One compression method's decompressor, fed and emptied in pieces. Knows nothing of entries and
// offsets: its errors carry a code alone. Belongs to one thread.
//
// An entry has been read whole when all its compressed bytes are consumed and the last step said
// `finished`. So the caller goes on while it has input, whatever `finished` says: Zstandard data
// may be several frames, which cannot be seen before the next one begins. A finished decoder that
// takes nothing of the input that is left has found bytes behind the end of the stream.
class Decoder {
  public:
    struct Step {
        std::size_t consumed = 0;  // bytes taken from the front of `input`
        std::size_t produced = 0;  // bytes put at the front of `output`
        // The compressed stream is complete, and all that it holds has been produced. Later steps
        // do nothing and say so again; those of Zstandard begin the next frame if given input.
        bool finished = false;
    };

    virtual ~Decoder() = default;
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // Decodes until the input is used up, the output is full or the stream ends; it may stop
    // earlier, but not without having done something. A step with neither consumed nor produced
    // bytes and not finished means: more input, or more room, is needed. Bytes behind the end of
    // the stream are not consumed (behind a Zstandard frame they have to be another frame).
    // kDamagedData for a stream that no encoder writes, kOutOfMemory, kUnsupportedMethod for a
    // variant that cannot be read; the decoder can then only be reset or destroyed.
    //
    // The two must not overlap; `output` may hold anything behind `produced` afterwards.
    [[nodiscard]] virtual Result<Step> decode(ByteView input, MutableBytes output) = 0;

    // Back to the start of a new stream of the same parameters. After an error of its own
    // (kOutOfMemory) it may be tried again.
    [[nodiscard]] virtual Result<> reset() = 0;
};

// The largest window (LZMA and XZ: dictionary) in bytes that a stream may ask for; kOutOfMemory
// over it. The largest that the usual levels of the usual tools ask for is 64 MiB.
inline constexpr std::uint64_t kLargestWindow = 128ULL * 1024 * 1024;

// What a decoder has to know of its entry before the first byte.
struct DecoderParameters {
    std::uint16_t method = 0;
    std::uint16_t flags = 0;  // the entry's general purpose bits; LZMA and Implode need some
    // What the directory declares. A deflated stream may turn out otherwise, as may most; the
    // caller compares. It ends a stored one, an LZMA or PPMd stream without end marker, and those
    // of methods 1 to 6. A decoder touches no more memory for its window than this (but see
    // needsLargeWindow).
    std::uint64_t uncompressedSize = 0;
    // For the window, in bytes: kOutOfMemory over it, and over kLargestWindow (PPMd: 256 MiB).
    std::uint64_t mostMemory = std::numeric_limits<std::uint64_t>::max();
};

// Whether makeDecoder has a decoder for this method.
[[nodiscard]] bool isSupportedMethod(std::uint16_t method);

// Whether the method's stream says by itself where it ends, whatever size its entry declares.
[[nodiscard]] bool knowsItsEnd(std::uint16_t method);

// Whether the decoder may use more than about 10 MiB for its window, so that the caller does well
// to have one of them at a time: for an LZMA, XZ or Zstandard entry of over 8 MiB, and for PPMd of
// over 64 KiB, which may use 256 MiB. The others need less than 4 MiB, whatever their entry's size.
[[nodiscard]] bool needsLargeWindow(std::uint16_t method, std::uint64_t uncompressedSize);

// The most bytes that `compressedSize` bytes of this method can become, or UINT64_MAX where the
// method has no such bound (or it does not fit). Reached, or nearly, by no ordinary file.
[[nodiscard]] std::uint64_t mostUncompressedSize(std::uint16_t method,
                                                 std::uint64_t compressedSize);

// A decoder for one entry; kUnsupportedMethod if there is none.
[[nodiscard]] Result<std::unique_ptr<Decoder>> makeDecoder(const DecoderParameters& parameters);

}  // namespace pellumar::archive
