#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

#include "archive/base/Error.h"
#include "archive/base/File.h"

namespace pellumar::archive {

// The folder that an archive is extracted into, and the making of things below it. Everything is
// reached from the folder's descriptor without following a symbolic link on the way, so nothing
// that stands in the folder can lead a write out of it.
//
// Paths are relative, with "/" between components, as EntryPath makes them; an empty one is the
// folder itself. May be used by several threads at once.
class DestinationTree {
  public:
    // Makes the folder if it is not there; its parent has to be.
    [[nodiscard]] static Result<DestinationTree> open(const std::filesystem::path& path);

    // A descriptor to reach what is in a folder, good for the *at calls alone (O_PATH).
    [[nodiscard]] Result<File> enter(std::string_view folder) const;

    // The same a component at a time, for kernels without openat2 (before 5.6) and for sandboxes
    // that forbid it.
    [[nodiscard]] Result<File> enterStepByStep(std::string_view folder) const;

    // Goes on from the descriptor of a folder to one below it.
    [[nodiscard]] static Result<File> descend(int from, std::string_view folder);

    // What the file system has left for this user. UINT64_MAX for what it does not tell.
    struct Room {
        std::uint64_t bytes = 0;
        std::uint64_t nodes = 0;      // files, folders and links
        std::uint64_t blockSize = 0;  // what a file's size is rounded up to
    };
    [[nodiscard]] Room room() const;

    // The longest name of one component that the file system takes, in bytes.
    [[nodiscard]] std::size_t longestName() const;

    // The bits that the process's umask takes off new files. All of them where that cannot be told,
    // so that whoever asks sets the permissions once more.
    [[nodiscard]] std::uint32_t umask() const { return umask_; }

  private:
    DestinationTree(File root, std::uint32_t umask) : root_(std::move(root)), umask_(umask) {}

    File root_;
    std::uint32_t umask_ = 0;
};

// Keeps the folder that was entered last, since neighbours in an archive share it. Belongs to one
// thread; the tree outlives it.
class FolderCursor {
  public:
    explicit FolderCursor(const DestinationTree& tree) : tree_(tree) {}

    // The descriptor of the folder that holds `path`, valid until the next call.
    [[nodiscard]] Result<int> enterParentOf(std::string_view path);

  private:
    const DestinationTree& tree_;
    File folder_;
    std::string path_;
};

// The part of a path behind its last "/", and in front of it (empty if there is none).
[[nodiscard]] std::string_view lastComponent(std::string_view path);
[[nodiscard]] std::string_view parentOf(std::string_view path);

}  // namespace pellumar::archive
