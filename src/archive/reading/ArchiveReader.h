#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/Warning.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// An archive that is open for reading: its bytes and its directory. Does not change after open(),
// so several threads may use it.
class ArchiveReader {
  public:
    // Finds the central directory and reads it. What is wrong with entries stands in the table.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveReader>> open(
        std::unique_ptr<const ByteSource> source);
    // The same of a regular file, or of the split archive that it is a volume of.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveReader>> open(
        const std::filesystem::path& path);

    [[nodiscard]] const ByteSource& source() const { return *source_; }
    [[nodiscard]] const EntryTable& entries() const { return entries_; }
    [[nodiscard]] const Warnings& warnings() const { return warnings_; }
    [[nodiscard]] const std::string& comment() const { return comment_; }

  private:
    ArchiveReader(std::unique_ptr<const ByteSource> source,
                  EntryTable entries,
                  Warnings warnings,
                  std::string comment);

    std::unique_ptr<const ByteSource> source_;
    EntryTable entries_;
    Warnings warnings_;
    std::string comment_;
};

}  // namespace pellumar::archive
