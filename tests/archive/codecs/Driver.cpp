#include "Driver.h"

#include <algorithm>

namespace pellumar::archive::test {

namespace {

// Behind each output, as the libraries' own code is not watched by a sanitizer.
constexpr std::size_t kGuardSize = 64;
constexpr std::uint8_t kGuard = 0xA5;

}  // namespace

PieceSize always(std::size_t size) {
    return [size] { return size; };
}

PieceSize anySize(std::mt19937& random) {
    return [&random] { return 1 + random() % (std::size_t{1} << (random() % 18)); };
}

Outcome drive(Decoder& decoder,
              ByteView input,
              const PieceSize& inputPiece,
              const PieceSize& outputPiece,
              std::size_t mostOutput) {
    Outcome outcome;
    Bytes output;
    while (outcome.output.size() <= mostOutput) {
        const ByteView rest = input.subspan(outcome.consumed);
        const Bytes piece(
            rest.begin(),
            rest.begin() + static_cast<std::ptrdiff_t>(std::min(rest.size(), inputPiece())));
        const std::size_t room = outputPiece();
        output.resize(room + kGuardSize);
        std::fill_n(output.data() + room, kGuardSize, kGuard);
        const auto step = decoder.decode(piece, MutableBytes(output).first(room));
        outcome.broken =
            std::count(output.data() + room, output.data() + room + kGuardSize, kGuard) !=
            kGuardSize;
        if (!step) {
            outcome.error = step.error().code;
            break;
        }
        outcome.broken = outcome.broken || step->consumed > piece.size() || step->produced > room;
        if (outcome.broken) {
            break;
        }
        outcome.consumed += step->consumed;
        outcome.output.insert(outcome.output.end(),
                              output.begin(),
                              output.begin() + static_cast<std::ptrdiff_t>(step->produced));
        outcome.finished = step->finished;
        if (step->consumed == 0 && step->produced == 0) {
            outcome.broken = !step->finished && !piece.empty() && room > 0;
            break;
        }
    }
    return outcome;
}

}  // namespace pellumar::archive::test
