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

// What an .xz stream needs beside the dictionary, generously: about 200 KiB with a filter before
// LZMA2.
constexpr std::uint64_t kBesideDictionary = 1024UL * 1024;

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

LzmaDecoder::LzmaDecoder(const DecoderParameters& parameters)
    : parameters_(parameters), mostMemory_(std::min(parameters.mostMemory, kLargestWindow)) {}

Result<Decoder::Step> LzmaDecoder::decode(ByteView input, MutableBytes output) {
    if (finished_) {
        return Step{.finished = true};
    }
    std::size_t taken = 0;
    if (headerLeft_ > 0) {
        taken = std::min(headerLeft_, input.size());
        std::copy_n(input.begin(), taken, header_.end() - headerLeft_);
        headerLeft_ -= taken;
        if (headerLeft_ > 0) {
            return Step{.consumed = taken};
        }
        if (Result<> ready = beginRaw(); !ready) {
            return passOn(ready);
        }
    }
    stream_.next_in = input.data() + taken;
    stream_.avail_in = input.size() - taken;
    stream_.next_out = output.data();
    stream_.avail_out = output.size();
    const lzma_ret result = lzma_code(&stream_, LZMA_RUN);
    // LZMA_BUF_ERROR only says, from the second time on, that nothing could be done.
    if (result != LZMA_OK && result != LZMA_STREAM_END && result != LZMA_BUF_ERROR) {
        return failure(errorOf(result));
    }
    finished_ = result == LZMA_STREAM_END;
    return Step{.consumed = input.size() - stream_.avail_in,
                .produced = output.size() - stream_.avail_out,
                .finished = finished_};
}

Result<> LzmaDecoder::reset() {
    finished_ = false;
    headerLeft_ = 0;
    if (parameters_.method == format::kMethodXz) {
        return begun(lzma_stream_decoder(&stream_, mostMemory_ + kBesideDictionary, 0));
    }
    headerLeft_ = kHeaderSize;
    return {};
}

Result<> LzmaDecoder::beginRaw() {
    if (loadLittleEndian<std::uint16_t>(header_, kPropertiesSizeAt) != kPropertiesSize ||
        header_[kPropertiesAt] >= kPropertyBytes) {
        return failure(ErrorCode::kDamagedData);
    }
    // Nothing lies further back than the data is long, whatever dictionary the encoder had.
    const std::uint64_t dictionary = std::min<std::uint64_t>(
        loadLittleEndian<std::uint32_t>(header_, kDictionarySizeAt),
        std::max<std::uint64_t>(parameters_.uncompressedSize, LZMA_DICT_SIZE_MIN));
    if (dictionary > mostMemory_) {
        return failure(ErrorCode::kOutOfMemory);
    }
    const std::uint8_t properties = header_[kPropertiesAt];
    lzma_options_lzma options{};
    options.dict_size = static_cast<std::uint32_t>(dictionary);
    options.lc = properties % 9U;
    options.lp = properties / 9U % 5U;
    options.pb = properties / 45U;
    const bool hasEndMarker = (parameters_.flags & format::kFlagLzmaEndMarker) != 0;
    lzma_set_ext_size(options, hasEndMarker ? kUntilMarker : parameters_.uncompressedSize);
    // The format allows up to 12; liblzma, as all that writes LZMA by its presets, has 4.
    if (options.lc + options.lp > LZMA_LCLP_MAX) {
        return failure(ErrorCode::kUnsupportedMethod);
    }
    const std::array<lzma_filter, 2> filters{
        {{LZMA_FILTER_LZMA1EXT, &options}, {LZMA_VLI_UNKNOWN, nullptr}}};
    return begun(lzma_raw_decoder(&stream_, filters.data()));
}

Result<> LzmaDecoder::begun(lzma_ret result) {
    return result == LZMA_OK ? Result<>() : failure(errorOf(result));
}

}  // namespace pellumar::archive
