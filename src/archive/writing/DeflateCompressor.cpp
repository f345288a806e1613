#include "archive/writing/DeflateCompressor.h"

#include <algorithm>

#include "archive/writing/DeflateJoin.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kPieceSize = CompressibilityProbe::kPieceSize;
constexpr std::size_t kMostPieces = DeflateCompressor::kChunkSize / kPieceSize;

// Each run begins a block of its own; a compressed one may be made open-ended before it is found to
// be no smaller than stored, and libdeflate leaves a few bytes of its room unused.
constexpr std::size_t kSlack = 64;
constexpr std::size_t kOutputSize =
    storedDeflateSize(DeflateCompressor::kChunkSize) + kMostPieces * kStoredBlockHeader + kSlack;

// Measured on C sources and on programs: in text the higher level saves twice as much for the same
// time as it does in programs, which tell themselves by their zero bytes.
constexpr int kTextLevel = 6;
constexpr int kBinaryLevel = 5;
constexpr std::size_t kSampleStride = 61;
constexpr std::size_t kFewZeros = 200;  // text has less than one in so many

int levelFor(ByteView run) {
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < run.size(); i += kSampleStride) {
        zeros += run[i] == 0 ? 1U : 0U;
    }
    return zeros * kSampleStride * kFewZeros > run.size() ? kBinaryLevel : kTextLevel;
}

}  // namespace

ByteView DeflateCompressor::compress(ByteView chunk, bool last) {
    if (chunk.empty()) {
        return last ? ByteView(kEmptyDeflateStream) : ByteView();
    }
    if (!output_) {
        output_.reset(new std::uint8_t[kOutputSize]);
    }
    size_ = 0;
    std::array<bool, kMostPieces> worthwhile{};
    const std::size_t pieces = (chunk.size() + kPieceSize - 1) / kPieceSize;
    probe_.restart();
    for (std::size_t i = 0; i < pieces; ++i) {
        const std::size_t start = i * kPieceSize;
        worthwhile[i] =
            probe_.isWorthwhile(chunk.subspan(start, std::min(kPieceSize, chunk.size() - start)));
    }
    for (std::size_t first = 0; first < pieces;) {
        std::size_t end = first + 1;
        while (end < pieces && worthwhile[end] == worthwhile[first]) {
            ++end;
        }
        const std::size_t start = first * kPieceSize;
        const ByteView run = chunk.subspan(start, std::min(end * kPieceSize, chunk.size()) - start);
        const bool lastRun = last && end == pieces;
        if (!worthwhile[first] || !tryCompress(run, lastRun)) {
            appendStored(run, lastRun);
        }
        first = end;
    }
    return {output_.get(), size_};
}

void DeflateCompressor::appendStored(ByteView run, bool last) {
    const std::size_t size = storedDeflateSize(run.size());
    storeAsDeflate(run, last, room().first(size));
    size_ += size;
}

bool DeflateCompressor::tryCompress(ByteView run, bool last) {
    libdeflate_compressor* const compressor = encoder(levelFor(run));
    if (compressor == nullptr) {
        return false;
    }
    const MutableBytes target = room();
    std::optional<std::size_t> size = libdeflate_deflate_compress(
        compressor, run.data(), run.size(), target.data(), target.size() - kDeflateJoinRoom);
    if (size == 0) {
        return false;
    }
    if (!last) {
        size = openDeflateEnd(walker_, target, *size);
    }
    if (!size || *size >= storedDeflateSize(run.size())) {
        return false;
    }
    size_ += *size;
    return true;
}

MutableBytes DeflateCompressor::room() {
    return MutableBytes(output_.get(), kOutputSize).subspan(size_);
}

libdeflate_compressor* DeflateCompressor::encoder(int level) {
    Encoder& encoder = encoders_[static_cast<std::size_t>(level)];
    if (!encoder) {
        encoder.reset(libdeflate_alloc_compressor(level));
    }
    return encoder.get();
}

}  // namespace pellumar::archive
