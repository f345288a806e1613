#include "archive/codecs/XzDecoder.h"

namespace pellumar::archive {

namespace {

// What liblzma needs beside the dictionary, generously: about 200 KiB with a filter before LZMA2.
constexpr std::uint64_t kBesideDictionary = 1024UL * 1024;

}  // namespace

Result<> XzDecoder::reset() {
    return stream_.begin(lzma_stream_decoder(stream_.get(), mostMemory_ + kBesideDictionary, 0));
}

}  // namespace pellumar::archive
