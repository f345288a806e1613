#pragma once

#include <filesystem>
#include <memory>

#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/Warning.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// An archive that is open for reading: its file and its directory. Does not change after open(), so
// several threads may use it.
class ArchiveReader {
  public:
    // Opens a regular file, finds its central directory, reads and checks it.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveReader>> open(
        const std::filesystem::path& path);

    [[nodiscard]] const File& file() const { return file_; }
    [[nodiscard]] const EntryTable& entries() const { return entries_; }
    [[nodiscard]] const Warnings& warnings() const { return warnings_; }

  private:
    ArchiveReader(File file, EntryTable entries, Warnings warnings);

    File file_;
    EntryTable entries_;
    Warnings warnings_;
};

}  // namespace pellumar::archive
