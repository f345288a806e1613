#include "archive/writing/DeflateCompressor.h"

#include <algorithm>

#include "archive/writing/DeflateJoin.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kProbedPiece = CompressibilityProbe::kProbedPiece;
constexpr std::size_t kMostPieces = DeflateCompressor::kChunkSize / kProbedPiece;

// Each run begins a block of its own; a compressed one may be made open-ended before it is found to
// be no smaller than stored, and libdeflate leaves a few bytes of its room unused.
constexpr std::size_t kSlack = 64;
static_assert(DeflateCompressor::kMostOutput >= storedDeflateSize(DeflateCompressor::kChunkSize) +
                                                    kMostPieces * kStoredBlockHeader + kSlack);

// Measured on C sources and on programs: in text the higher level saves twice as much for the same
// time as it does in programs, which tell themselves by their zero bytes. In short texts, with less
// to look back on, it saves less than one per cent.
constexpr int kLongTextLevel = 6;
constexpr int kUsualLevel = 5;
constexpr int kSmallest = 9;
constexpr std::size_t kLongText = 64UL * 1024;
constexpr std::size_t kSampleStride = 61;
constexpr std::size_t kFewZeros = 200;  // text has less than one in so many

int levelFor(ByteView run) {
    if (run.size() <= kLongText) {
        return kUsualLevel;
    }
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < run.size(); i += kSampleStride) {
        zeros += run[i] == 0 ? 1U : 0U;
    }
    return zeros * kSampleStride * kFewZeros > run.size() ? kUsualLevel : kLongTextLevel;
}

// The smallest is worth the slowest.
int encoderLevel(int level) {
    return level == kSmallest ? DeflateCompressor::kHighestLevel : level;
}

}  // namespace

std::size_t DeflateCompressor::compress(ByteView chunk,
                                        bool last,
                                        MutableBytes output,
                                        std::optional<int> level) {
    if (chunk.empty()) {
        const std::size_t size = last ? kEmptyDeflateStream.size() : 0;
        std::copy_n(kEmptyDeflateStream.begin(), size, output.begin());
        return size;
    }
    std::array<bool, kMostPieces> worthwhile{};
    const std::size_t pieces = (chunk.size() + kProbedPiece - 1) / kProbedPiece;
    probe_.restart();
    for (std::size_t i = 0; i < pieces; ++i) {
        const std::size_t start = i * kProbedPiece;
        worthwhile[i] =
            probe_.isWorthwhile(chunk.subspan(start, std::min(kProbedPiece, chunk.size() - start)));
    }
    std::size_t done = 0;
    for (std::size_t first = 0; first < pieces;) {
        std::size_t end = first + 1;
        while (end < pieces && worthwhile[end] == worthwhile[first]) {
            ++end;
        }
        const std::size_t start = first * kProbedPiece;
        const ByteView run =
            chunk.subspan(start, std::min(end * kProbedPiece, chunk.size()) - start);
        const bool lastRun = last && end == pieces;
        std::optional<std::size_t> size;
        if (worthwhile[first]) {
            size = tryCompress(run, lastRun, output.subspan(done), level);
        }
        if (!size) {
            size = storedDeflateSize(run.size());
            storeAsDeflate(run, lastRun, output.subspan(done, *size));
        }
        done += *size;
        first = end;
    }
    return done;
}

std::optional<std::size_t> DeflateCompressor::tryCompress(ByteView run,
                                                          bool last,
                                                          MutableBytes output,
                                                          std::optional<int> level) {
    libdeflate_compressor* const compressor = encoder(level ? encoderLevel(*level) : levelFor(run));
    if (compressor == nullptr) {
        return std::nullopt;
    }
    std::optional<std::size_t> size = libdeflate_deflate_compress(
        compressor, run.data(), run.size(), output.data(), output.size() - kDeflateJoinRoom);
    if (size == 0) {
        return std::nullopt;
    }
    if (!last) {
        size = openDeflateEnd(walker_, output, *size);
    }
    if (!size || *size >= storedDeflateSize(run.size())) {
        return std::nullopt;
    }
    return size;
}

libdeflate_compressor* DeflateCompressor::encoder(int level) {
    Encoder& encoder = encoders_[static_cast<std::size_t>(level)];
    if (!encoder) {
        encoder.reset(libdeflate_alloc_compressor(level));
    }
    return encoder.get();
}

}  // namespace pellumar::archive
