#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "archive/base/Error.h"
#include "archive/base/File.h"

namespace pellumar::archive {

// A file that comes to stand under its name whole or not at all, whatever ends the process or the
// machine meanwhile. Belongs to one thread.
//
// Where the file system can, the file has no name until it is committed (O_TMPFILE, open(2)), so
// that nothing is left of one that is not. Elsewhere it stands beside its name under one that ends
// in ".part", which only a killed process leaves behind.
class PendingFile {
  public:
    // What becomes of that which stands under the name already. Replacing takes a file's place, or
    // a link's; a folder is never replaced.
    enum class Existing : std::uint8_t { kRefuse, kReplace };
    enum class Road : std::uint8_t { kNameless, kNamed };

    // kAlreadyExists for what stands at `path` and is not to be replaced; kOpenFailed if the folder
    // takes no file of that name. `road` is the first that is tried.
    [[nodiscard]] static Result<PendingFile> create(const std::filesystem::path& path,
                                                    Existing existing,
                                                    Road road = Road::kNameless);

    PendingFile(PendingFile&& other) noexcept;
    PendingFile& operator=(PendingFile&&) = delete;
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    // Of a file that was not committed: nothing of it stays.
    ~PendingFile();

    // Open for reading and writing until commit().
    [[nodiscard]] File& file() { return file_; }

    // Writes all to the disk (fsync), gives the file its name, writes that to the disk as well, and
    // closes. After a failure the file is gone, and what stood under the name is untouched; only
    // where the folder itself could not be written out the name may be there.
    [[nodiscard]] Result<> commit();

  private:
    PendingFile(File folder, std::string name, Existing existing);

    [[nodiscard]] bool openNameless();
    [[nodiscard]] Result<> openNamed();
    [[nodiscard]] Result<> giveName();
    // Under a name that nobody has; `temporary_` afterwards.
    [[nodiscard]] bool linkTemporarily();
    [[nodiscard]] bool moveFromTemporary();
    void discard();

    File folder_;
    std::string name_;
    Existing existing_;
    File file_;
    // The name in `folder_` that goes with this, if it has one.
    std::string temporary_;
};

}  // namespace pellumar::archive
