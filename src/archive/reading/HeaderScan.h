#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "archive/base/ByteSource.h"
#include "archive/base/Bytes.h"

namespace pellumar::archive {

// Finds local file headers by their looks, wherever they stand, through a window that moves on over
// the archive. What cannot be read is passed over. Belongs to one thread.
class HeaderScan {
  public:
    // `source` outlives the scan.
    explicit HeaderScan(const ByteSource& source);

    // The first place from `from` on, up to `until`, where a local header may begin: all of its
    // fixed part stands there.
    [[nodiscard]] std::optional<std::uint64_t> next(std::uint64_t from, std::uint64_t until);

    // Whether one of the format's records begins there, by its signature.
    [[nodiscard]] bool isRecord(std::uint64_t offset);

  private:
    // What the window holds from `offset` on: at least `size` bytes where they can be read.
    [[nodiscard]] ByteView at(std::uint64_t offset, std::size_t size);

    const ByteSource& source_;
    std::unique_ptr<std::uint8_t[]> window_;
    std::uint64_t start_ = 0;
    std::size_t size_ = 0;
};

}  // namespace pellumar::archive
