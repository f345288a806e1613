#pragma once

#include <filesystem>
#include <string>

#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/UnfinishedFile.h"

namespace pellumar::archive {

// A file that comes to stand under its name whole or not at all, whatever ends the process or the
// machine meanwhile. Belongs to one thread.
class PendingFile {
  public:
    using Existing = UnfinishedFile::Existing;
    using Road = UnfinishedFile::Road;

    // kAlreadyExists for what stands at `path` and is not to be replaced; kOpenFailed if the folder
    // takes no file of that name. `road` is the first that is tried.
    [[nodiscard]] static Result<PendingFile> create(const std::filesystem::path& path,
                                                    Existing existing,
                                                    Road road = Road::kNameless);

    PendingFile(PendingFile&&) noexcept = default;
    PendingFile& operator=(PendingFile&&) = delete;
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    // Of a file that was not committed: nothing of it stays.
    ~PendingFile() = default;

    // Open for reading and writing until commit().
    [[nodiscard]] File& file() { return file_.file(); }

    // Writes all to the disk (fsync), gives the file its name, writes that to the disk as well, and
    // closes. After a failure the file is gone, and what stood under the name is untouched; only
    // where the folder itself could not be written out the name may be there.
    [[nodiscard]] Result<> commit();

  private:
    PendingFile(File folder, UnfinishedFile file, std::string name, Existing existing);

    File folder_;  // before the file in it
    UnfinishedFile file_;
    std::string name_;
    Existing existing_;
};

}  // namespace pellumar::archive
