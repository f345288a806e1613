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

// Measured on C sources, documents and programs: in text the higher level saves twice as much for
// the same time as it does in programs. In short texts there is less to look back on.
constexpr int kTextLevel = 6;
constexpr int kUsualLevel = 5;
constexpr int kSmallest = 9;
constexpr std::size_t kLongText = 32UL * 1024;
constexpr std::size_t kSampleStride = 61;
constexpr std::size_t kFewControls = 200;  // text has less than one in so many

// Bytes that programs are full of and text has none of. Zeros also fill the gaps between texts, in
// archives of them.
bool isControl(std::uint8_t byte) {
    return byte < 0x20 && byte != 0 && (byte < '\t' || byte > '\r');
}

int levelFor(ByteView run) {
    if (run.size() <= kLongText) {
        return kUsualLevel;
    }
    std::size_t controls = 0;
    for (std::size_t i = 0; i < run.size(); i += kSampleStride) {
        controls += isControl(run[i]) ? 1U : 0U;
    }
    return controls * kSampleStride * kFewControls > run.size() ? kUsualLevel : kTextLevel;
}

// The smallest is worth the slowest.
int encoderLevel(int level) {
    return level == kSmallest ? DeflateCompressor::kHighestLevel : level;
}

}  // namespace

std::size_t DeflateCompressor::compress(ByteView chunk,
                                        bool last,
                                        MutableBytes output,
                                        std::optional<int> level,
                                        std::size_t window) {
    const ByteView content = chunk.subspan(window);
    if (content.empty()) {
        const std::size_t size = last ? kEmptyDeflateStream.size() : 0;
        std::copy_n(kEmptyDeflateStream.begin(), size, output.begin());
        return size;
    }
    std::array<bool, kMostPieces> worthwhile{};
    const std::size_t pieces = (content.size() + kProbedPiece - 1) / kProbedPiece;
    probe_.restart();
    for (std::size_t i = 0; i < pieces; ++i) {
        const std::size_t start = i * kProbedPiece;
        worthwhile[i] = probe_.isWorthwhile(
            content.subspan(start, std::min(kProbedPiece, content.size() - start)));
    }
    std::size_t done = 0;
    for (std::size_t first = 0; first < pieces;) {
        std::size_t end = first + 1;
        while (end < pieces && worthwhile[end] == worthwhile[first]) {
            ++end;
        }
        const std::size_t start = first * kProbedPiece;
        const std::size_t runSize = std::min(end * kProbedPiece, content.size()) - start;
        const ByteView run = content.subspan(start, runSize);
        const bool lastRun = last && end == pieces;
        std::optional<std::size_t> size;
        if (worthwhile[first]) {
            const int encoded = level ? encoderLevel(*level) : levelFor(run);
            // At the end what is gained would not pay for finding the stream's last bit.
            if (first == 0 && window > 0 && !lastRun) {
                size = tryGoingOn(chunk.first(window + runSize), window, output, encoded);
            }
            size = size ? size : tryCompress(run, lastRun, output.subspan(done), encoded);
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
                                                          int level) {
    std::optional<std::size_t> size = encode(run, output, level);
    if (*size != 0 && !last) {
        size = openDeflateEnd(walker_, output, *size);
    }
    return size && *size != 0 && *size < storedDeflateSize(run.size()) ? size : std::nullopt;
}

std::optional<std::size_t> DeflateCompressor::tryGoingOn(ByteView run,
                                                         std::size_t window,
                                                         MutableBytes output,
                                                         int level) {
    probe_.restart();
    if (!probe_.isWorthwhile(run.first(window))) {
        return std::nullopt;
    }
    std::optional<std::size_t> size = encode(run, output, level);
    if (*size != 0) {
        size = openDeflateEnds(walker_, output, *size, run, window);
    }
    return size && *size != 0 && *size < storedDeflateSize(run.size() - window) ? size
                                                                                : std::nullopt;
}

std::size_t DeflateCompressor::encode(ByteView run, MutableBytes output, int level) {
    libdeflate_compressor* const compressor = encoder(level);
    return compressor == nullptr ? 0
                                 : libdeflate_deflate_compress(compressor,
                                                               run.data(),
                                                               run.size(),
                                                               output.data(),
                                                               output.size() - kDeflateJoinRoom);
}

libdeflate_compressor* DeflateCompressor::encoder(int level) {
    Encoder& encoder = encoders_[static_cast<std::size_t>(level)];
    if (!encoder) {
        encoder.reset(libdeflate_alloc_compressor(level));
    }
    return encoder.get();
}

}  // namespace pellumar::archive
