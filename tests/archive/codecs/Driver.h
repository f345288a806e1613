#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <random>

#include "Encoders.h"
#include "archive/codecs/Decoder.h"

namespace pellumar::archive::test {

// What came of feeding a decoder.
struct Outcome {
    Bytes output;
    std::size_t consumed = 0;
    bool finished = false;
    std::optional<ErrorCode> error;
    // It took nothing and gave nothing though it had input and room, or wrote behind its output.
    bool broken = false;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

// The size of the next piece; asked anew for each.
using PieceSize = std::function<std::size_t()>;

[[nodiscard]] PieceSize always(std::size_t size);
// Mostly small, at times large. `random` has to outlive it.
[[nodiscard]] PieceSize anySize(std::mt19937& random);

// Feeds `input` in pieces and empties the decoder in pieces, until it has ended, failed, wants more
// than there is, or has put out more than `mostOutput`.
[[nodiscard]] Outcome drive(Decoder& decoder,
                            ByteView input,
                            const PieceSize& inputPiece,
                            const PieceSize& outputPiece,
                            std::size_t mostOutput = SIZE_MAX);

}  // namespace pellumar::archive::test
