#include "archive/codecs/LzmaDecoder.h"

#include <algorithm>
#include <limits>

#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kPropertiesSizeAt = 2;
constexpr std::size_t kPropertiesAt = 4;
constexpr std::size_t kDictionarySizeAt = 5;
constexpr std::uint16_t kPropertiesSize = 5;

// The first byte of the properties is (pb * 5 + lp) * 9 + lc.
constexpr std::uint8_t kPropertyBytes = 9 * 5 * 5;

// liblzma's word for a size that is not known.
constexpr std::uint64_t kUntilMarker = std::numeric_limits<std::uint64_t>::max();

}  // namespace

LzmaDecoder::LzmaDecoder(const DecoderParameters& parameters)
    : uncompressedSize_(parameters.uncompressedSize),
      endMarker_((parameters.flags & format::kFlagLzmaEndMarker) != 0),
      mostMemory_(std::min(parameters.mostMemory, kLargestWindow)) {}

Result<Decoder::Step> LzmaDecoder::decode(ByteView input, MutableBytes output) {
    std::size_t taken = 0;
    if (headerSize_ < kHeaderSize) {
        taken = std::min(kHeaderSize - headerSize_, input.size());
        std::copy_n(input.begin(), taken, header_.begin() + headerSize_);
        headerSize_ += taken;
        if (headerSize_ < kHeaderSize) {
            return Step{.consumed = taken};
        }
        if (Result<> begun = begin(); !begun) {
            return passOn(begun);
        }
    }
    Result<Step> step = stream_.decode(input.subspan(taken), output);
    if (step) {
        step->consumed += taken;
    }
    return step;
}

Result<> LzmaDecoder::begin() {
    if (loadLittleEndian<std::uint16_t>(header_, kPropertiesSizeAt) != kPropertiesSize ||
        header_[kPropertiesAt] >= kPropertyBytes) {
        return failure(ErrorCode::kDamagedData);
    }
    // Nothing lies further back than the data is long, whatever dictionary the encoder had.
    const std::uint64_t dictionary =
        std::min<std::uint64_t>(loadLittleEndian<std::uint32_t>(header_, kDictionarySizeAt),
                                std::max<std::uint64_t>(uncompressedSize_, LZMA_DICT_SIZE_MIN));
    if (dictionary > mostMemory_) {
        return failure(ErrorCode::kOutOfMemory);
    }
    const std::uint8_t properties = header_[kPropertiesAt];
    lzma_options_lzma options{};
    options.dict_size = static_cast<std::uint32_t>(dictionary);
    options.lc = properties % 9U;
    options.lp = properties / 9U % 5U;
    options.pb = properties / 45U;
    lzma_set_ext_size(options, endMarker_ ? kUntilMarker : uncompressedSize_);
    // The format allows up to 12; liblzma, as all that writes LZMA by its presets, has 4.
    if (options.lc + options.lp > LZMA_LCLP_MAX) {
        return failure(ErrorCode::kUnsupportedMethod);
    }
    const std::array<lzma_filter, 2> filters{
        {{LZMA_FILTER_LZMA1EXT, &options}, {LZMA_VLI_UNKNOWN, nullptr}}};
    return stream_.begin(lzma_raw_decoder(stream_.get(), filters.data()));
}

Result<> LzmaDecoder::reset() {
    headerSize_ = 0;
    return {};
}

}  // namespace pellumar::archive
