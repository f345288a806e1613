#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "archive/Writer.h"
#include "archive/base/EntrySource.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/Password.h"
#include "archive/base/Warning.h"

namespace pellumar::archive {

class Reader;

enum class AccessMode : std::uint8_t { kCreate, kReplace };

enum class CompressionMethod : std::uint8_t { kDeflate };

// A ZIP archive that is being made at a path, in the way the application asks for it: a thin face
// of Writer. Of one that is not closed nothing stays.
//
// Belongs to one thread at a time, and has threads of its own inside until it is closed.
class Archive {
  public:
    // kCreate: makes a new file at `path`; kAlreadyExists if something stands there, now or when
    // the archive is closed.
    // kReplace: the same, but takes the place of a file or link that stands there.
    // With a password, what is in the files is encrypted (AES-256). All else that `options` says
    // counts as it does for a Writer.
    [[nodiscard]] static Result<Archive> open(const std::filesystem::path& path,
                                              AccessMode mode,
                                              std::shared_ptr<const Password> password = nullptr,
                                              WriterOptions options = {});

    // Adds the file or folder `base`/`path` as the entry `path`, with its permissions and its
    // modification time. A "\" in it, or a beginning like that of a drive ("C:x"), would lead
    // elsewhere on other systems: such a name is made portable, with a warning. A folder becomes an
    // entry of its own; what is in it is not added. A symbolic link is followed. `bufferSize` (4
    // KiB to 1 MiB; others are taken for the nearest) is the size of one read from the source.
    //
    // Names are not compared: of several entries of one name all go in, and extracting takes the
    // last. Whose sources may have one name gives them different ones first.
    //
    // On an error nothing of this entry is in the archive, and the next may be added; after
    // kNoSpace or kWriteFailed that will fail as well unless room is made. kInvalidArgument if
    // `path` is empty, absolute, longer than 65,535 bytes or has a ".." component.
    [[nodiscard]] Result<> addEntry(const std::string& path,
                                    const std::filesystem::path& base,
                                    CompressionMethod method,
                                    std::size_t bufferSize = kDefaultWriteChunkSize);

    // The same of many, in this order, which are read and compressed ahead on all processors. Goes
    // on as `afterEach` says: Writer::addAll.
    [[nodiscard]] Result<> addAll(const std::vector<EntrySource>& sources,
                                  CompressionMethod method,
                                  std::size_t bufferSize,
                                  const Writer::AfterEach& afterEach);

    // Writes the central directory, sees everything onto the disk, and gives the file its name:
    // until this has succeeded nothing stands at the path but what stood there before, however the
    // process ends. Afterwards every operation gives kInvalidArgument; closing again only
    // gives the same result.
    [[nodiscard]] Result<> close();

    // What was odd about what was added.
    [[nodiscard]] const Warnings& warnings() const;

  private:
    Archive(Writer writer, std::shared_ptr<const Password> password);
    [[nodiscard]] NewEntry entryOf(const EntrySource& source, std::size_t bufferSize) const;

    Writer writer_;
    std::shared_ptr<const Password> password_;
};

using UnzipReport = ExtractionReport;

// Extracts all of an archive that is open into the folder `to`: Reader::extractAll, where an
// archive is refused of which any entry has a fault. The warnings are those of opening as well.
[[nodiscard]] Result<UnzipReport> unzipItem(const Reader& archive,
                                            const std::filesystem::path& to,
                                            const ExtractionOptions& options = {});
// Opens the archive `at` for that. Nothing that stands in `to` is overwritten. With `skipCRC32` the
// checksums are not verified. `password` may be null.
[[nodiscard]] Result<UnzipReport> unzipItem(const std::filesystem::path& at,
                                            const std::filesystem::path& to,
                                            bool skipCRC32 = false,
                                            const Password* password = nullptr);

}  // namespace pellumar::archive
