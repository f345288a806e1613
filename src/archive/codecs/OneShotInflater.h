#pragma once

#include <libdeflate.h>

#include <memory>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// Inflates whole raw DEFLATE streams (RFC 1951) of known size in one call, by libdeflate: the fast
// way for entries that fit into memory. May be used again and again, by one thread at a time.
class OneShotInflater {
  public:
    // kOutOfMemory.
    [[nodiscard]] static Result<OneShotInflater> create();

    // `input` has to be one stream and nothing behind it, and has to become exactly
    // `exactOutput.size()` bytes: kSizeMismatch if it yields more or fewer or ends before the
    // input, kDamagedData if it is none; either if it is cut off. After an error `exactOutput`
    // holds anything, and the inflater may be used on.
    [[nodiscard]] Result<> inflate(ByteView input, MutableBytes exactOutput);

  private:
    struct Free {
        void operator()(libdeflate_decompressor* decompressor) const {
            libdeflate_free_decompressor(decompressor);
        }
    };

    explicit OneShotInflater(libdeflate_decompressor* decompressor) : decompressor_(decompressor) {}

    std::unique_ptr<libdeflate_decompressor, Free> decompressor_;
};

}  // namespace pellumar::archive
