#include <algorithm>
#include <memory>
#include <vector>

#include "archive/codecs/Decoder.h"
#include "archive/format/ZipFormat.h"
#include "fuzz/Require.h"

namespace {

using pellumar::archive::ByteView;
using pellumar::archive::Decoder;
using pellumar::archive::DecoderParameters;
using pellumar::fuzz::require;
namespace format = pellumar::archive::format;

constexpr std::uint16_t kMethods[] = {format::kMethodShrink,
                                      format::kMethodReduce1,
                                      format::kMethodReduce2,
                                      format::kMethodReduce3,
                                      format::kMethodReduce4,
                                      format::kMethodImplode,
                                      format::kMethodPpmd,
                                      format::kMethodDeflate64,
                                      format::kMethodBzip2,
                                      format::kMethodLzma,
                                      format::kMethodXz,
                                      format::kMethodZstandard};

// What is decoded of one input, and the most that is declared.
constexpr std::size_t kMostOutput = 1UL << 18U;
constexpr std::uint64_t kMostMemory = 64UL * 1024 * 1024;

enum class End : std::uint8_t { kFinished, kNeedsInput, kFailed, kTooMuch };

struct Decoded {
    std::vector<std::uint8_t> content;
    std::size_t consumed = 0;
    End end = End::kNeedsInput;

    friend bool operator==(const Decoded&, const Decoded&) = default;
};

// Runs a decoder over `input` in pieces of these sizes.
Decoded decode(Decoder& decoder, ByteView input, std::size_t inputPiece, std::size_t outputPiece) {
    Decoded decoded;
    std::vector<std::uint8_t> output(outputPiece);
    while (decoded.content.size() <= kMostOutput) {
        const ByteView rest = input.subspan(decoded.consumed);
        const auto step = decoder.decode(rest.first(std::min(inputPiece, rest.size())), output);
        if (!step) {
            // What came out before the damage may differ, what is said of it may not.
            return {.content = {}, .consumed = 0, .end = End::kFailed};
        }
        require(step->consumed <= rest.size() && step->produced <= output.size(),
                "a step stays within its buffers");
        decoded.consumed += step->consumed;
        decoded.content.insert(decoded.content.end(),
                               output.begin(),
                               output.begin() + static_cast<std::ptrdiff_t>(step->produced));
        if (step->consumed == 0 && step->produced == 0) {
            require(step->finished || rest.empty(), "a decoder with input and room gets on");
            decoded.end = step->finished ? End::kFinished : End::kNeedsInput;
            return decoded;
        }
    }
    decoded.end = End::kTooMuch;
    return decoded;
}

bool isOwn(std::uint16_t method) {
    return method <= format::kMethodDeflate64 || method == format::kMethodPpmd;
}

bool endsByDeclaredSize(const DecoderParameters& parameters) {
    return parameters.method <= format::kMethodImplode || parameters.method == format::kMethodPpmd;
}

}  // namespace

// Decodes any bytes by one method: what comes out depends neither on the pieces nor on what the
// decoder did before. The first byte chooses the method and the entry's flags, the next three the
// declared size and the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) {
        return 0;
    }
    const DecoderParameters parameters{
        .method = kMethods[data[0] % std::size(kMethods)],
        .flags = static_cast<std::uint16_t>(data[0] / std::size(kMethods) * 2),
        .uncompressedSize = std::min<std::uint64_t>(4ULL * data[1] * data[1], kMostOutput),
        .mostMemory = kMostMemory};
    const auto decoder = pellumar::archive::makeDecoder(parameters);
    require(decoder.has_value(), "there is a decoder");
    const ByteView input(data + 4, size - 4);
    const Decoded whole = decode(**decoder, input, input.size() + 1, kMostOutput);
    require(!endsByDeclaredSize(parameters) || whole.content.size() <= parameters.uncompressedSize,
            "no more comes out than was declared");
    require((*decoder)->reset().has_value(), "a decoder can be reset");
    const Decoded pieces = decode(**decoder, input, data[2] + 1U, data[3] * 8U + 1U);
    // Of more than is looked at one may have seen damage that the other has not come to; and some
    // libraries take what is damaged for damaged in one case and for not whole in the other.
    const bool mayDiffer =
        whole.end == End::kTooMuch || pieces.end == End::kTooMuch ||
        (!isOwn(parameters.method) && whole.end != End::kFinished && pieces.end != End::kFinished);
    require(mayDiffer || whole == pieces, "the pieces do not matter");
    return 0;
}
