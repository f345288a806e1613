#pragma once

#include "Encoders.h"

// Encoders of the methods that nothing writes any more, after APPNOTE 5.1 to 5.3 and without a
// thought for speed. They use all that the format has: shared code with the decoders there is none.
namespace pellumar::archive::test {

// LZW; clears its table whenever that is full.
[[nodiscard]] Bytes shrink(ByteView plain);

// `factor` is 1 to 4.
[[nodiscard]] Bytes reduce(ByteView plain, unsigned factor);

struct ImplodeOptions {
    bool literalCode = true;
    bool largeWindow = true;

    [[nodiscard]] std::uint16_t flags() const {
        return static_cast<std::uint16_t>((largeWindow ? 2 : 0) | (literalCode ? 4 : 0));
    }
};
[[nodiscard]] Bytes implode(ByteView plain, const ImplodeOptions& options);

}  // namespace pellumar::archive::test
