#include "archive/codecs/Bzip2Decoder.h"

#include <algorithm>
#include <cstddef>

namespace pellumar::archive {

namespace {

// libbz2 counts with 32 bits; a step may do less than it is given.
constexpr std::size_t kMostForBzip2 = 1UL << 30U;

}  // namespace

// Ending a stream that was not begun is an error without effect.
Bzip2Decoder::~Bzip2Decoder() {
    BZ2_bzDecompressEnd(&stream_);
}

Result<Decoder::Step> Bzip2Decoder::decode(ByteView input, MutableBytes output) {
    if (finished_) {
        return Step{.finished = true};
    }
    const std::size_t inputSize = std::min(input.size(), kMostForBzip2);
    const std::size_t outputSize = std::min(output.size(), kMostForBzip2);
    // libbz2 takes its input as not const and as char, but does not write to it.
    stream_.next_in = reinterpret_cast<char*>(const_cast<std::uint8_t*>(input.data()));
    stream_.avail_in = static_cast<unsigned>(inputSize);
    stream_.next_out = reinterpret_cast<char*>(output.data());
    stream_.avail_out = static_cast<unsigned>(outputSize);
    const int result = BZ2_bzDecompress(&stream_);
    if (result == BZ_MEM_ERROR) {
        return failure(ErrorCode::kOutOfMemory);
    }
    if (result != BZ_OK && result != BZ_STREAM_END) {
        return failure(ErrorCode::kDamagedData);
    }
    finished_ = result == BZ_STREAM_END;
    return Step{.consumed = inputSize - stream_.avail_in,
                .produced = outputSize - stream_.avail_out,
                .finished = finished_};
}

Result<> Bzip2Decoder::reset() {
    BZ2_bzDecompressEnd(&stream_);
    finished_ = false;
    if (BZ2_bzDecompressInit(&stream_, 0, 0) != BZ_OK) {
        return failure(ErrorCode::kOutOfMemory);
    }
    return {};
}

}  // namespace pellumar::archive
