#include "archive/codecs/ZstandardDecoder.h"

#include <zstd_errors.h>

#include <algorithm>
#include <bit>

namespace pellumar::archive {

namespace {

ErrorCode errorOf(std::size_t result) {
    switch (ZSTD_getErrorCode(result)) {
        case ZSTD_error_memory_allocation:
        case ZSTD_error_frameParameter_windowTooLarge:
            return ErrorCode::kOutOfMemory;
        case ZSTD_error_version_unsupported:
        case ZSTD_error_frameParameter_unsupported:
        case ZSTD_error_dictionary_wrong:
            return ErrorCode::kUnsupportedMethod;
        default:
            return ErrorCode::kDamagedData;
    }
}

// RFC 8878, 3.1.1.1.2.
constexpr int kSmallestWindowLog = 10;

// The largest window that fits, as libzstd is told it.
int windowLog(std::uint64_t bytes) {
    const auto largest = static_cast<int>(std::bit_width(bytes)) - 1;
    return std::max(largest, kSmallestWindowLog);
}

}  // namespace

Result<Decoder::Step> ZstandardDecoder::decode(ByteView input, MutableBytes output) {
    if (betweenFrames_ && input.empty()) {
        // Called now, libzstd would begin to wait for the next frame.
        return Step{.finished = true};
    }
    ZSTD_inBuffer in{input.data(), input.size(), 0};
    ZSTD_outBuffer out{output.data(), output.size(), 0};
    do {
        // Does all that input and room allow, but stops at the end of a frame.
        const std::size_t result = ZSTD_decompressStream(context_.get(), &out, &in);
        if (ZSTD_isError(result) != 0U) {
            return failure(errorOf(result));
        }
        betweenFrames_ = result == 0;
    } while (betweenFrames_ && in.pos < in.size && out.pos < out.size);
    return Step{
        .consumed = in.pos, .produced = out.pos, .finished = betweenFrames_ && in.pos == in.size};
}

Result<> ZstandardDecoder::reset() {
    if (context_ == nullptr) {
        context_.reset(ZSTD_createDCtx());
        if (context_ == nullptr) {
            return failure(ErrorCode::kOutOfMemory);
        }
    }
    betweenFrames_ = false;
    // Neither fails between two streams and with a value in range.
    ZSTD_DCtx_reset(context_.get(), ZSTD_reset_session_only);
    ZSTD_DCtx_setParameter(context_.get(), ZSTD_d_windowLogMax, windowLog(mostMemory_));
    return {};
}

}  // namespace pellumar::archive
