#pragma once

#include <isa-l/igzip_lib.h>

#include <cstddef>

#include "archive/codecs/Decoder.h"

namespace pellumar::archive {

// Method 8, raw DEFLATE (RFC 1951), by ISA-L: the fast way for streams. Its answer is that of
// Deflate64Decoder for DEFLATE, except that it takes some incomplete Huffman codes that no encoder
// writes. About 90 KiB, all inside the object; resetting does not touch them.
class InflateDecoder final : public Decoder {
  public:
    InflateDecoder();

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

    // Whether the last block has ended.
    [[nodiscard]] bool isFinished() const;
    // Whether what has been consumed ends on a byte boundary right where a block does that is not
    // the last.
    [[nodiscard]] bool isBetweenBlocks() const;

  private:
    [[nodiscard]] std::size_t giveBack(std::size_t consumed);

    inflate_state state_;
};

}  // namespace pellumar::archive
