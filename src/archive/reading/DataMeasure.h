#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// How long an entry's data is, where its local header does not tell, and its checksum.
struct DataMeasures {
    std::uint32_t crc32 = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
};

// Finds out how long data is of which only a descriptor behind it tells (APPNOTE 4.3.9): by
// decoding it where the method knows its own end, else by looking for a descriptor that says just
// as many bytes as stand before it. Belongs to one thread.
class DataMeasure {
  public:
    // `source` outlives the object. `mostUncompressed` ends the decoding with kTooLarge.
    DataMeasure(const ByteSource& source, std::uint64_t mostUncompressed, std::stop_token stop);

    // Of the data at `offset` of this method, and its descriptor. kTruncated if the archive ends
    // before both, kDamagedData, kHeaderMismatch for a descriptor that says otherwise, kTooLarge,
    // kCancelled. `encrypted` data is not looked into. `said` is the packed size that the local
    // header tells, which is believed if a descriptor stands there; 0 if it does not.
    [[nodiscard]] Result<DataMeasures> measure(std::uint64_t offset,
                                               std::uint16_t method,
                                               bool encrypted,
                                               std::uint64_t said);

    // How many bytes of the archive were read by the last measuring.
    [[nodiscard]] std::uint64_t bytesRead() const { return bytesRead_; }

  private:
    [[nodiscard]] Result<DataMeasures> decode(std::uint64_t offset, std::uint16_t method);
    [[nodiscard]] Result<DataMeasures> search(std::uint64_t offset, bool checksummed);
    // The descriptor's values if it stands at `offset` and says that many bytes were before it.
    [[nodiscard]] std::optional<DataMeasures> descriptorAt(std::uint64_t offset,
                                                           std::uint64_t before) const;
    [[nodiscard]] Result<> checkDescriptor(std::uint64_t offset,
                                           const DataMeasures& measures) const;
    // The next piece from `offset` on into input_; empty at the archive's end.
    [[nodiscard]] Result<ByteView> next(std::uint64_t offset);

    const ByteSource& source_;
    const std::uint64_t mostUncompressed_;
    const std::stop_token stop_;
    std::unique_ptr<std::uint8_t[]> input_;
    std::unique_ptr<std::uint8_t[]> output_;
    std::uint64_t bytesRead_ = 0;
};

}  // namespace pellumar::archive
