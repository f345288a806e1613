#pragma once

#include <cstddef>
#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// What is unpacked and written at a time of an entry that streams: small enough to stay in the
// cache in between.
inline constexpr std::size_t kStreamedPiece = 256UL * 1024;

// Takes an entry's data in pieces, in order. Write your own to have it go anywhere.
class DataSink {
  public:
    DataSink() = default;
    DataSink(const DataSink&) = delete;
    DataSink& operator=(const DataSink&) = delete;
    virtual ~DataSink() = default;

    // A place for the next piece, kStreamedPiece long, where the sink wants to have it; else empty.
    [[nodiscard]] virtual MutableBytes room() { return {}; }

    // Says that so many bytes more will come than the entry declared. An error ends the reading.
    [[nodiscard]] virtual Result<> expectMore(std::uint64_t /*bytes*/) { return {}; }

    // The next piece of data that nobody has verified yet: the entry may still turn out damaged.
    // The bytes are only valid during the call. An error ends the reading.
    [[nodiscard]] virtual Result<> write(ByteView bytes) = 0;

    // Instead of all calls of write(): the whole entry, verified.
    [[nodiscard]] virtual Result<> writeVerified(ByteView bytes) { return write(bytes); }
};

}  // namespace pellumar::archive
