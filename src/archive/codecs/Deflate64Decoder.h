#pragma once

#include <cstddef>
#include <cstdint>

#include "archive/codecs/BitReader.h"
#include "archive/codecs/Decoder.h"
#include "archive/codecs/DynamicHeader.h"
#include "archive/codecs/HuffmanTable.h"
#include "archive/codecs/WindowedOutput.h"

namespace pellumar::archive {

enum class DeflateVariant : std::uint8_t {
    kDeflate,    // RFC 1951
    kDeflate64,  // distances to 64 KiB, lengths to 65,538
};

// Method 9, raw Deflate64, which no library of the system reads. It is DEFLATE but for the meaning
// of three codes, so this decodes DEFLATE just as well: the plain reference for the fast decoders.
// About 100 KiB, all inside the object.
//
// Strict as zlib is: codes must be complete, except that a code of distances may have one symbol or
// none, and one of literals only the end of the block.
class Deflate64Decoder final : public Decoder {
  public:
    explicit Deflate64Decoder(DeflateVariant variant = DeflateVariant::kDeflate64);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    enum class State : std::uint8_t {
        kBlockHeader,
        kStoredSize,
        kStoredBytes,
        kDynamicHeader,
        kSymbols,
        kDistance,
        kMatch,
        kFinished,
    };

    // Each does what its state stands for. kDone: go on with state_, which it has set.
    [[nodiscard]] InflateProgress advance();
    [[nodiscard]] InflateProgress readBlockHeader();
    [[nodiscard]] InflateProgress readStoredSize();
    [[nodiscard]] InflateProgress copyStored();
    [[nodiscard]] InflateProgress readDynamicHeader();
    [[nodiscard]] InflateProgress decodeSymbols();
    [[nodiscard]] InflateProgress decodeLength(const HuffmanSymbol& symbol);
    [[nodiscard]] InflateProgress decodeDistance();
    [[nodiscard]] InflateProgress copyMatch();

    [[nodiscard]] bool useFixedCodes();
    void endBlock();

    DeflateVariant variant_;
    State state_ = State::kBlockHeader;
    bool lastBlock_ = false;
    std::size_t length_ = 0;    // bytes left of the stored block, or of the match
    std::size_t distance_ = 0;  // of the match
    BitReader bits_;
    WindowedOutput output_;
    DynamicHeader header_;
    HuffmanTable literals_;
    HuffmanTable distances_;
};

}  // namespace pellumar::archive
