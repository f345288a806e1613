#include "archive/codecs/OneShotInflater.h"

#include <cstddef>

namespace pellumar::archive {

Result<OneShotInflater> OneShotInflater::create() {
    libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
    if (decompressor == nullptr) {
        return failure(ErrorCode::kOutOfMemory);
    }
    return OneShotInflater(decompressor);
}

Result<> OneShotInflater::inflate(ByteView input, MutableBytes exactOutput) {
    std::size_t consumed = 0;
    // Without a place for the size produced, fewer bytes than asked for are an error.
    const libdeflate_result result = libdeflate_deflate_decompress_ex(decompressor_.get(),
                                                                      input.data(),
                                                                      input.size(),
                                                                      exactOutput.data(),
                                                                      exactOutput.size(),
                                                                      &consumed,
                                                                      nullptr);
    if (result == LIBDEFLATE_BAD_DATA) {
        return failure(ErrorCode::kDamagedData);
    }
    if (result != LIBDEFLATE_SUCCESS || consumed != input.size()) {
        return failure(ErrorCode::kSizeMismatch);
    }
    return {};
}

}  // namespace pellumar::archive
