#include "archive/codecs/InflateDecoder.h"

#include <algorithm>

namespace pellumar::archive {

namespace {

// ISA-L counts with 32 bits; a step may do less than it is given.
constexpr std::size_t kMostForIsal = 1UL << 30U;

}  // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): its buffers are written before use.
InflateDecoder::InflateDecoder() {
    isal_inflate_init(&state_);
}

Result<Decoder::Step> InflateDecoder::decode(ByteView input, MutableBytes output) {
    if (isFinished()) {
        return Step{.finished = true};
    }
    const std::size_t inputSize = std::min(input.size(), kMostForIsal);
    const std::size_t outputSize = std::min(output.size(), kMostForIsal);
    // ISA-L takes its input as not const, but does not write to it.
    state_.next_in = const_cast<std::uint8_t*>(input.data());
    state_.avail_in = static_cast<std::uint32_t>(inputSize);
    state_.next_out = output.data();
    state_.avail_out = static_cast<std::uint32_t>(outputSize);
    if (isal_inflate(&state_) != ISAL_DECOMP_OK) {
        return failure(ErrorCode::kDamagedData);
    }
    const bool finished = isFinished();
    std::size_t consumed = inputSize - state_.avail_in;
    if (finished || state_.avail_out == 0) {
        consumed -= giveBack(consumed);
    }
    return Step{
        .consumed = consumed, .produced = outputSize - state_.avail_out, .finished = finished};
}

// ISA-L reads up to eight bytes ahead, which may lie behind the end of the stream. Takes those out
// of its bit buffer that came with this step, and says how many. Where it waits for input this must
// not be done: what it holds is then the beginning of a symbol, and it would wait for ever.
std::size_t InflateDecoder::giveBack(std::size_t consumed) {
    if (state_.tmp_in_size != 0 || state_.read_in_length <= 0) {
        return 0;
    }
    const auto held = static_cast<std::size_t>(state_.read_in_length) / 8;
    const std::size_t count = std::min(held, consumed);
    state_.read_in_length -= static_cast<std::int32_t>(count * 8);
    state_.read_in &= (std::uint64_t{1} << static_cast<unsigned>(state_.read_in_length)) - 1;
    return count;
}

bool InflateDecoder::isFinished() const {
    return state_.block_state == ISAL_BLOCK_FINISH;
}

// Having looked for a header that has not come yet it waits for the rest of one.
bool InflateDecoder::isBetweenBlocks() const {
    const bool awaitsBlock =
        state_.block_state == ISAL_BLOCK_NEW_HDR || state_.block_state == ISAL_BLOCK_HDR;
    return awaitsBlock && state_.read_in_length <= 0 && state_.tmp_in_size == 0;
}

Result<> InflateDecoder::reset() {
    isal_inflate_reset(&state_);
    return {};
}

}  // namespace pellumar::archive
