#include <algorithm>
#include <optional>
#include <vector>

#include "archive/codecs/Deflate64Decoder.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/codecs/OneShotInflater.h"
#include "fuzz/Require.h"

namespace {

using pellumar::archive::ByteView;
using pellumar::archive::Decoder;
using pellumar::archive::Deflate64Decoder;
using pellumar::archive::DeflateVariant;
using pellumar::archive::MutableBytes;
using pellumar::fuzz::require;

constexpr std::size_t kMostOutput = 1UL << 16U;

struct Inflated {
    std::vector<std::uint8_t> content;
    std::size_t consumed = 0;
};

// Runs a decoder over `input` in pieces of these sizes. Nothing if the stream is damaged, not
// whole, or more than anybody wants to see.
std::optional<Inflated> inflate(Decoder& decoder,
                                ByteView input,
                                std::size_t inputPiece,
                                std::size_t outputPiece) {
    require(decoder.reset().has_value(), "a decoder can be reset");
    Inflated inflated;
    std::vector<std::uint8_t> output(outputPiece);
    while (inflated.content.size() <= kMostOutput) {
        const ByteView rest = input.subspan(inflated.consumed);
        const auto step = decoder.decode(rest.first(std::min(inputPiece, rest.size())), output);
        if (!step) {
            return {};
        }
        require(step->consumed <= rest.size() && step->produced <= output.size(),
                "a step stays within its buffers");
        inflated.consumed += step->consumed;
        inflated.content.insert(inflated.content.end(),
                                output.begin(),
                                output.begin() + static_cast<std::ptrdiff_t>(step->produced));
        if (step->finished) {
            return inflated;
        }
        if (step->consumed == 0 && step->produced == 0) {
            require(rest.size() <= inputPiece, "a decoder with input and room gets on");
            return {};
        }
    }
    return {};
}

void requireSame(const std::optional<Inflated>& one, const std::optional<Inflated>& other) {
    require(one.has_value() == other.has_value(), "the pieces do not matter to the outcome");
    if (one) {
        require(one->content == other->content, "both produce the same");
        require(one->consumed == other->consumed, "both end at the same byte");
    }
}

}  // namespace

// Holds all ways to inflate against each other. The first two bytes choose the sizes of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t inputPiece = data[0] + 1U;
    const std::size_t outputPiece = data[1] * 8U + 1U;
    const ByteView input(data + 2, size - 2);

    Deflate64Decoder wide(DeflateVariant::kDeflate64);
    requireSame(inflate(wide, input, size, kMostOutput),
                inflate(wide, input, inputPiece, outputPiece));

    Deflate64Decoder plain(DeflateVariant::kDeflate);
    const auto expected = inflate(plain, input, size, kMostOutput);
    requireSame(expected, inflate(plain, input, inputPiece, outputPiece));
    if (!expected) {
        return 0;  // the fast ones take some incomplete codes that the plain one refuses
    }
    pellumar::archive::InflateDecoder fast;
    requireSame(expected, inflate(fast, input, size, kMostOutput));
    requireSame(expected, inflate(fast, input, inputPiece, outputPiece));

    auto oneShot = pellumar::archive::OneShotInflater::create();
    require(oneShot.has_value(), "there is memory for an inflater");
    std::vector<std::uint8_t> output(expected->content.size());
    require(oneShot->inflate(input.first(expected->consumed), output).has_value(),
            "what streams inflates in one call");
    require(output == expected->content, "one call produces the same");
    return 0;
}
