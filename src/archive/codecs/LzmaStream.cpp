#include "archive/codecs/LzmaStream.h"

namespace pellumar::archive {

namespace {

ErrorCode errorOf(lzma_ret result) {
    switch (result) {
        case LZMA_MEM_ERROR:
        case LZMA_MEMLIMIT_ERROR:
            return ErrorCode::kOutOfMemory;
        case LZMA_OPTIONS_ERROR:
            return ErrorCode::kUnsupportedMethod;
        default:
            return ErrorCode::kDamagedData;
    }
}

}  // namespace

Result<> LzmaStream::begin(lzma_ret result) {
    finished_ = false;
    if (result != LZMA_OK) {
        return failure(errorOf(result));
    }
    return {};
}

Result<Decoder::Step> LzmaStream::decode(ByteView input, MutableBytes output) {
    if (finished_) {
        return Decoder::Step{.finished = true};
    }
    stream_.next_in = input.data();
    stream_.avail_in = input.size();
    stream_.next_out = output.data();
    stream_.avail_out = output.size();
    const lzma_ret result = lzma_code(&stream_, LZMA_RUN);
    // LZMA_BUF_ERROR only says, from the second time on, that nothing could be done.
    if (result != LZMA_OK && result != LZMA_STREAM_END && result != LZMA_BUF_ERROR) {
        return failure(errorOf(result));
    }
    finished_ = result == LZMA_STREAM_END;
    return Decoder::Step{.consumed = input.size() - stream_.avail_in,
                         .produced = output.size() - stream_.avail_out,
                         .finished = finished_};
}

}  // namespace pellumar::archive
