#include "archive/codecs/Decoder.h"

#include <limits>
#include <new>
#include <utility>

#include "archive/codecs/Bzip2Decoder.h"
#include "archive/codecs/Deflate64Decoder.h"
#include "archive/codecs/ImplodeDecoder.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/codecs/LzmaDecoder.h"
#include "archive/codecs/PpmdDecoder.h"
#include "archive/codecs/ReduceDecoder.h"
#include "archive/codecs/ShrinkDecoder.h"
#include "archive/codecs/StoredDecoder.h"
#include "archive/codecs/XzDecoder.h"
#include "archive/codecs/ZstandardDecoder.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::uint64_t kUnbounded = std::numeric_limits<std::uint64_t>::max();

// The shortest symbols that say most: a match of 258 bytes in two bits, one for its length and one
// for its distance (RFC 1951, 3.2.5). A literal is one byte in at least one bit, a stored byte
// takes eight; block headers only cost. So this holds from the first byte on.
constexpr std::uint64_t kMostByDeflate = 258ULL * 8 / 2;
// Deflate64's longest match is 65,538 bytes in 18 bits: one for the length code, 16 for its extra
// bits, one for the distance. All shorter ones say less a bit.
constexpr std::uint64_t kMostByDeflate64 = 65538ULL * 8 / 18;
static_assert(kMostByDeflate64 * 18 == 65538ULL * 8);

constexpr std::uint64_t kLargeWindowFrom = 8ULL * 1024 * 1024;
// A model grows by some hundred bytes for each that does not repeat what was before.
constexpr std::uint64_t kLargeModelFrom = 64ULL * 1024;

std::uint64_t multiplyBounded(std::uint64_t size, std::uint64_t factor) {
    return size > kUnbounded / factor ? kUnbounded : size * factor;
}

template <typename T, typename... Arguments>
Result<std::unique_ptr<Decoder>> make(Arguments&&... arguments) {
    std::unique_ptr<Decoder> decoder(new (std::nothrow) T(std::forward<Arguments>(arguments)...));
    if (decoder == nullptr) {
        return failure(ErrorCode::kOutOfMemory);
    }
    // What a library has to allocate it does here, so a decoder that you hold is ready.
    if (Result<> ready = decoder->reset(); !ready) {
        return passOn(ready);
    }
    return decoder;
}

}  // namespace

bool isSupportedMethod(std::uint16_t method) {
    switch (method) {
        case format::kMethodStored:
        case format::kMethodShrink:
        case format::kMethodReduce1:
        case format::kMethodReduce2:
        case format::kMethodReduce3:
        case format::kMethodReduce4:
        case format::kMethodImplode:
        case format::kMethodDeflate:
        case format::kMethodDeflate64:
        case format::kMethodBzip2:
        case format::kMethodLzma:
        case format::kMethodZstandardOld:
        case format::kMethodZstandard:
        case format::kMethodXz:
        case format::kMethodPpmd:
            return true;
        default:
            return false;
    }
}

bool needsLargeWindow(std::uint16_t method, std::uint64_t uncompressedSize) {
    switch (method) {
        case format::kMethodLzma:
        case format::kMethodXz:
        case format::kMethodZstandard:
        case format::kMethodZstandardOld:
            return uncompressedSize > kLargeWindowFrom;
        case format::kMethodPpmd:
            return uncompressedSize > kLargeModelFrom;
        default:
            return false;
    }
}

std::uint64_t mostUncompressedSize(std::uint16_t method, std::uint64_t compressedSize) {
    switch (method) {
        case format::kMethodStored:
            return compressedSize;
        case format::kMethodDeflate:
            return multiplyBounded(compressedSize, kMostByDeflate);
        case format::kMethodDeflate64:
            return multiplyBounded(compressedSize, kMostByDeflate64);
        default:
            return kUnbounded;
    }
}

Result<std::unique_ptr<Decoder>> makeDecoder(const DecoderParameters& parameters) {
    switch (parameters.method) {
        case format::kMethodStored:
            return make<StoredDecoder>(parameters.uncompressedSize);
        case format::kMethodShrink:
            return make<ShrinkDecoder>(parameters);
        case format::kMethodReduce1:
        case format::kMethodReduce2:
        case format::kMethodReduce3:
        case format::kMethodReduce4:
            return make<ReduceDecoder>(parameters);
        case format::kMethodImplode:
            return make<ImplodeDecoder>(parameters);
        case format::kMethodDeflate:
            return make<InflateDecoder>();
        case format::kMethodDeflate64:
            return make<Deflate64Decoder>();
        case format::kMethodBzip2:
            return make<Bzip2Decoder>();
        case format::kMethodLzma:
            return make<LzmaDecoder>(parameters);
        case format::kMethodZstandardOld:
        case format::kMethodZstandard:
            return make<ZstandardDecoder>();
        case format::kMethodXz:
            return make<XzDecoder>();
        case format::kMethodPpmd:
            return make<PpmdDecoder>(parameters);
        default:
            return failure(ErrorCode::kUnsupportedMethod);
    }
}

}  // namespace pellumar::archive
