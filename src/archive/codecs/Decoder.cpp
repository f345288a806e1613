#include "archive/codecs/Decoder.h"

#include <array>
#include <limits>
#include <new>
#include <type_traits>

#include "archive/codecs/Bzip2Decoder.h"
#include "archive/codecs/Deflate64Decoder.h"
#include "archive/codecs/ImplodeDecoder.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/codecs/LzmaDecoder.h"
#include "archive/codecs/PpmdDecoder.h"
#include "archive/codecs/ReduceDecoder.h"
#include "archive/codecs/ShrinkDecoder.h"
#include "archive/codecs/StoredDecoder.h"
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

constexpr std::uint64_t kNever = kUnbounded;

std::uint64_t multiplyBounded(std::uint64_t size, std::uint64_t factor) {
    return size > kUnbounded / factor ? kUnbounded : size * factor;
}

template <typename T>
Result<std::unique_ptr<Decoder>> make(const DecoderParameters& parameters) {
    std::unique_ptr<Decoder> decoder;
    if constexpr (std::is_default_constructible_v<T>) {
        decoder.reset(new (std::nothrow) T());
    } else {
        decoder.reset(new (std::nothrow) T(parameters));
    }
    if (decoder == nullptr) {
        return failure(ErrorCode::kOutOfMemory);
    }
    // What a library has to allocate it does here, so a decoder that you hold is ready.
    if (Result<> ready = decoder->reset(); !ready) {
        return passOn(ready);
    }
    return decoder;
}

// What is to be known of a method.
struct Method {
    std::uint16_t number = 0;
    Result<std::unique_ptr<Decoder>> (*make)(const DecoderParameters& parameters) = nullptr;
    bool knowsItsEnd = false;
    // From over which size on it may need a large window.
    std::uint64_t largeFrom = kNever;
    // The most bytes that one can become; 0: no bound.
    std::uint64_t mostGrowth = 0;
};

constexpr std::array kMethods = {
    Method{format::kMethodDeflate, make<InflateDecoder>, true, kNever, kMostByDeflate},
    Method{format::kMethodStored, make<StoredDecoder>, false, kNever, 1},
    Method{format::kMethodDeflate64, make<Deflate64Decoder>, true, kNever, kMostByDeflate64},
    Method{format::kMethodBzip2, make<Bzip2Decoder>, true},
    Method{format::kMethodLzma, make<LzmaDecoder>, false, kLargeWindowFrom},
    Method{format::kMethodZstandard, make<ZstandardDecoder>, true, kLargeWindowFrom},
    Method{format::kMethodZstandardOld, make<ZstandardDecoder>, true, kLargeWindowFrom},
    Method{format::kMethodXz, make<LzmaDecoder>, true, kLargeWindowFrom},
    Method{format::kMethodPpmd, make<PpmdDecoder>, false, kLargeModelFrom},
    Method{format::kMethodShrink, make<ShrinkDecoder>},
    Method{format::kMethodReduce1, make<ReduceDecoder>},
    Method{format::kMethodReduce2, make<ReduceDecoder>},
    Method{format::kMethodReduce3, make<ReduceDecoder>},
    Method{format::kMethodReduce4, make<ReduceDecoder>},
    Method{format::kMethodImplode, make<ImplodeDecoder>},
};

// Null if there is none of that number.
const Method* methodOf(std::uint16_t number) {
    for (const Method& method : kMethods) {
        if (method.number == number) {
            return &method;
        }
    }
    return nullptr;
}

}  // namespace

bool isSupportedMethod(std::uint16_t method) {
    return methodOf(method) != nullptr;
}

bool knowsItsEnd(std::uint16_t method) {
    const Method* const known = methodOf(method);
    return known != nullptr && known->knowsItsEnd;
}

bool needsLargeWindow(std::uint16_t method, std::uint64_t uncompressedSize) {
    const Method* const known = methodOf(method);
    return known != nullptr && uncompressedSize > known->largeFrom;
}

std::uint64_t mostUncompressedSize(std::uint16_t method, std::uint64_t compressedSize) {
    const Method* const known = methodOf(method);
    return known == nullptr || known->mostGrowth == 0
               ? kUnbounded
               : multiplyBounded(compressedSize, known->mostGrowth);
}

Result<std::unique_ptr<Decoder>> makeDecoder(const DecoderParameters& parameters) {
    const Method* const known = methodOf(parameters.method);
    return known == nullptr ? failure(ErrorCode::kUnsupportedMethod) : known->make(parameters);
}

}  // namespace pellumar::archive
