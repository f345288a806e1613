#include <algorithm>
#include <optional>
#include <vector>

#include "archive/codecs/Decoder.h"
#include "archive/format/ZipFormat.h"
#include "fuzz/Require.h"

namespace {

using pellumar::archive::ByteView;
using pellumar::archive::Decoder;
using pellumar::fuzz::require;
namespace format = pellumar::archive::format;

constexpr std::uint64_t kMostOutput = 1UL << 18U;

struct Decoded {
    std::vector<std::uint8_t> content;
    std::size_t consumed = 0;
    bool finished = false;
    bool failed = false;

    friend bool operator==(const Decoded&, const Decoded&) = default;
};

// Runs a decoder over `input` in pieces of these sizes.
Decoded decode(Decoder& decoder, ByteView input, std::size_t inputPiece, std::size_t outputPiece) {
    Decoded decoded;
    require(decoder.reset().has_value(), "a decoder can be reset");
    std::vector<std::uint8_t> output(outputPiece);
    while (true) {
        const ByteView rest = input.subspan(decoded.consumed);
        const auto step = decoder.decode(rest.first(std::min(inputPiece, rest.size())), output);
        if (!step) {
            // What came out before the damage may differ, what is said of it may not.
            return {.content = {}, .consumed = 0, .finished = false, .failed = true};
        }
        require(step->consumed <= rest.size() && step->produced <= output.size(),
                "a step stays within its buffers");
        decoded.consumed += step->consumed;
        decoded.content.insert(decoded.content.end(),
                               output.begin(),
                               output.begin() + static_cast<std::ptrdiff_t>(step->produced));
        decoded.finished = step->finished;
        if (step->consumed == 0 && step->produced == 0) {
            require(step->finished || rest.empty(), "a decoder with input and room gets on");
            return decoded;
        }
    }
}

}  // namespace

// Decodes any bytes by the methods that are our own code: what comes out depends neither on the
// pieces nor on what the decoder did before. The first four bytes choose the method, the declared
// size and the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::uint16_t kMethods[] = {format::kMethodShrink,
                                                 format::kMethodReduce1,
                                                 format::kMethodReduce4,
                                                 format::kMethodImplode,
                                                 format::kMethodPpmd};
    if (size < 4) {
        return 0;
    }
    const auto decoder = pellumar::archive::makeDecoder(
        {.method = kMethods[data[0] % std::size(kMethods)],
         .flags = static_cast<std::uint16_t>(data[0] / std::size(kMethods) * 2),
         .uncompressedSize = std::min<std::uint64_t>(4ULL * data[1] * data[1], kMostOutput)});
    require(decoder.has_value(), "there is a decoder");
    const ByteView input(data + 4, size - 4);
    const Decoded whole = decode(**decoder, input, input.size() + 1, kMostOutput);
    require(whole.content.size() <= kMostOutput, "no more comes out than was declared");
    require(whole == decode(**decoder, input, data[2] + 1U, data[3] * 8U + 1U),
            "the pieces do not matter");
    return 0;
}
