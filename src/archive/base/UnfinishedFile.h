#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

#include "archive/base/Error.h"
#include "archive/base/File.h"

namespace pellumar::archive {

// A file in a folder that does not stand under its name yet. Belongs to one thread.
//
// Where the file system can, it has no name at all (O_TMPFILE, open(2)), so that nothing is left of
// one that never gets its own, however the process ends. Elsewhere it has a name that ends in
// ".part", which only a killed process leaves behind.
class UnfinishedFile {
  public:
    // What becomes of that which stands under the name already. Replacing takes a file's place, or
    // a link's; a folder is never replaced.
    enum class Existing : std::uint8_t { kRefuse, kReplace };
    enum class Road : std::uint8_t { kNameless, kNamed };

    // No file; only assigning to it and isOpen() make sense.
    UnfinishedFile() = default;

    // Makes one in the folder behind `folder`, a descriptor that stays open as long as the file.
    // `mode` less what umask or access list withhold. `road` is the first that is tried.
    // kOpenFailed.
    [[nodiscard]] static Result<UnfinishedFile> create(int folder,
                                                       mode_t mode,
                                                       Road road = Road::kNameless);

    UnfinishedFile(UnfinishedFile&& other) noexcept;
    UnfinishedFile& operator=(UnfinishedFile&& other) noexcept;
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    // Of a file that was not given its name: nothing of it stays.
    ~UnfinishedFile();

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    // Open for reading and writing.
    [[nodiscard]] File& file() { return file_; }

    // Lets it stand under `name` in its folder from now on. kAlreadyExists, kWriteFailed; nothing
    // under the name has changed then.
    [[nodiscard]] Result<> giveName(const std::string& name, Existing existing);

    // Closes and removes it, unless it was given its name.
    void discard();

  private:
    explicit UnfinishedFile(int folder) : folder_(folder) {}

    [[nodiscard]] bool openNameless(mode_t mode);
    [[nodiscard]] Result<> openNamed(mode_t mode);
    [[nodiscard]] bool link(const std::string& name) const;
    // Under a name that nobody has; `temporary_` afterwards.
    [[nodiscard]] bool linkTemporarily();
    [[nodiscard]] bool moveFromTemporary(const std::string& name, Existing existing);

    int folder_ = -1;
    File file_;
    std::string temporary_;  // the name that goes with this, if it has one
};

}  // namespace pellumar::archive
