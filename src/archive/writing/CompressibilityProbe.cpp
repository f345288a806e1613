#include "archive/writing/CompressibilityProbe.h"

#include <algorithm>
#include <array>

namespace pellumar::archive {

namespace {

// Less than this is simply compressed.
constexpr std::size_t kSmallestProbed = 4096;

// The histogram is taken of slices spread over the piece.
constexpr std::size_t kSlices = 16;
constexpr std::size_t kSliceSize = 64;

// Bytes at random give one 256th as the probability that two of them are equal. Within this many
// hundredths of it no code for single bytes saves more than about three in a hundred.
constexpr std::uint64_t kFlatPercent = 115;

// The part that is compressed on trial, and how much of it must be saved.
constexpr std::size_t kTrialSize = 8192;
constexpr std::size_t kWorthwhileGain = kTrialSize / 50;
constexpr int kTrialLevel = 1;

// After this many failures in a row only every kTrustLength-th piece is tried.
constexpr unsigned kFailuresBeforeTrust = 2;
constexpr unsigned kTrustLength = 4;

// Whether the sampled bytes are spread so evenly that only repetitions could be compressed.
bool hasFlatHistogram(ByteView piece) {
    std::array<std::uint32_t, 256> counts{};
    const std::size_t stride = (piece.size() - kSliceSize) / (kSlices - 1);
    for (std::size_t slice = 0; slice < kSlices; ++slice) {
        for (const std::uint8_t byte : piece.subspan(slice * stride, kSliceSize)) {
            ++counts[byte];
        }
    }
    std::uint64_t equalPairs = 0;
    for (const std::uint64_t count : counts) {
        equalPairs += count * (count - (count != 0 ? 1 : 0));
    }
    constexpr std::uint64_t kSampled = kSlices * kSliceSize;
    constexpr std::uint64_t kExpected = kSampled * (kSampled - 1) / 256;
    return equalPairs * 100 < kExpected * kFlatPercent;
}

}  // namespace

void CompressibilityProbe::restart() {
    failures_ = 0;
}

bool CompressibilityProbe::isWorthwhile(ByteView piece) {
    if (piece.size() < kSmallestProbed || !hasFlatHistogram(piece)) {
        failures_ = 0;
        return true;
    }
    if (failures_ >= kFailuresBeforeTrust && failures_ % kTrustLength != 0) {
        ++failures_;
        return false;
    }
    if (tryPart(piece.subspan((piece.size() - std::min(piece.size(), kTrialSize)) / 2,
                              std::min(piece.size(), kTrialSize)))) {
        failures_ = 0;
        return true;
    }
    ++failures_;
    return false;
}

bool CompressibilityProbe::tryPart(ByteView part) {
    if (!trial_) {
        trial_.reset(libdeflate_alloc_compressor(kTrialLevel));
        trialOutput_ = std::make_unique<std::uint8_t[]>(kTrialSize);
    }
    if (!trial_ || part.size() <= kWorthwhileGain) {
        return true;
    }
    return libdeflate_deflate_compress(trial_.get(),
                                       part.data(),
                                       part.size(),
                                       trialOutput_.get(),
                                       part.size() - kWorthwhileGain) != 0;
}

}  // namespace pellumar::archive
