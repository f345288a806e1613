#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/base/Error.h"
#include "archive/format/EntryRecord.h"
#include "archive/writing/ArchiveOutput.h"

namespace pellumar::archive {

// The central directory while it grows: the headers in the bytes they will have in the archive,
// which is the most compact form, in blocks, so that no growth copies them. Belongs to one thread.
class DirectoryWriter {
  public:
    // Makes ready to add an entry, in place of one that was made ready but not added.
    void reserve(const format::EntryRecord& record);
    // Adds the entry that was made ready. Cannot fail.
    void addReserved();

    // Appends the directory and the records that end the archive (APPNOTE 4.3.12 to 4.3.16), with
    // the archive's comment. The directory is empty afterwards.
    [[nodiscard]] Result<> writeTo(ArchiveOutput& output, std::string_view comment);

  private:
    std::vector<std::uint8_t> next_;
    std::vector<std::vector<std::uint8_t>> blocks_;
    std::uint64_t entries_ = 0;
};

}  // namespace pellumar::archive
