#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "archive/base/ByteSource.h"
#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/format/Sections.h"

namespace pellumar::archive {

// Inflates sections of deflated data by themselves. Belongs to one thread.
//
// A section that is taken begins and ends between two blocks and refers to nothing before itself.
// So where all sections of an entry are taken, from the first byte of its data to the last, they
// become what the data as a whole becomes.
class SectionInflater {
  public:
    // Takes the next bytes of the content, which begin there.
    using Place = std::function<Result<>(std::uint64_t position, ByteView bytes)>;

    // `file` outlives the inflater.
    explicit SectionInflater(const ByteSource& file);

    // Hands the content of `section` over, of data that begins at `dataOffset` in the file; its
    // checksum. kDamagedData if it is no section or has another size; errors of reading, and of
    // `place`.
    [[nodiscard]] Result<std::uint32_t> inflate(std::uint64_t dataOffset,
                                                const format::Section& section,
                                                bool last,
                                                const Place& place);

  private:
    const ByteSource& file_;
    InflateDecoder decoder_;
    std::unique_ptr<std::uint8_t[]> input_;
    std::unique_ptr<std::uint8_t[]> output_;
};

}  // namespace pellumar::archive
