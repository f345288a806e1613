#pragma once

#include <cstdint>

#include "archive/codecs/Decoder.h"
#include "archive/codecs/PpmdModel.h"

namespace pellumar::archive {

// Method 98 (APPNOTE 5.10): PPMd, variant I revision 1. Two bytes say order, memory (1 to 256 MiB,
// touched as it is used) and what happens when that is full; then come the symbols by a range
// coder, and usually an escape out of all contexts, which ends the stream.
class PpmdDecoder final : public Decoder {
  public:
    explicit PpmdDecoder(const DecoderParameters& parameters);

    [[nodiscard]] Result<Step> decode(ByteView input, MutableBytes output) override;
    [[nodiscard]] Result<> reset() override;

  private:
    enum class Outcome : std::uint8_t { kSymbol, kEscape, kEnd, kDamaged };

    // Takes bytes until the coder can go on; false if there are too few.
    [[nodiscard]] bool readHead();
    [[nodiscard]] bool normalize();
    [[nodiscard]] bool takeByte(std::uint8_t& byte);
    [[nodiscard]] Result<> begin();

    [[nodiscard]] Outcome codeStep();
    [[nodiscard]] Outcome codeBinary();
    [[nodiscard]] std::uint32_t threshold(std::uint32_t total);
    void narrow(std::uint32_t start, std::uint32_t size);

    const std::uint64_t size_;
    const std::uint64_t mostMemory_;

    ByteView input_;
    std::size_t position_ = 0;
    std::uint64_t head_ = 0;  // parameters and the coder's first four bytes
    unsigned headSize_ = 0;
    std::uint32_t low_ = 0;
    std::uint32_t range_ = 0;
    std::uint32_t code_ = 0;  // from low_ on
    bool escaped_ = false;    // in the middle of a symbol
    bool ended_ = false;
    std::uint8_t symbol_ = 0;
    std::uint64_t left_ = 0;  // bytes to come
    PpmdModel model_;
    PpmdModel::Choice choice_;
};

}  // namespace pellumar::archive
