#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

    // The folder's own descriptor.
    [[nodiscard]] int descriptor() const { return root_.descriptor(); }

    // Goes from the descriptor of a folder to one below it, or to itself. The new descriptor is
    // good for the *at calls alone (O_PATH).
    [[nodiscard]] static Result<File> enter(int from, std::string_view folder);

    // The same a component at a time, for kernels without openat2 (before 5.6) and for sandboxes
    // that forbid it.
    [[nodiscard]] static Result<File> enterStepByStep(int from, std::string_view folder);

    // What the file system has left for this user. UINT64_MAX for what it does not tell.
    struct Room {
        std::uint64_t free = 0;       // bytes
        std::uint64_t bytes = 0;      // of files, that fit in at best: it may compress them
        std::uint64_t nodes = 0;      // files, folders and links
        std::uint64_t blockSize = 0;  // what a file's size is rounded up to
    };
    [[nodiscard]] Room room() const;
    // The same of the file system that an open file or folder is on.
    [[nodiscard]] static Room roomAt(int descriptor);

    // The longest name of one component that the file system takes, in bytes.
    [[nodiscard]] std::size_t longestName() const;

  private:
    explicit DestinationTree(File root) : root_(std::move(root)) {}

    File root_;
};

// Keeps the folder that was entered last and some of those above it, since neighbours in an archive
// share them. Belongs to one thread; the tree outlives it.
class FolderCursor {
  public:
    explicit FolderCursor(const DestinationTree& tree) : tree_(tree) {}

    // The descriptor of the folder that holds `path`, valid until the next call.
    [[nodiscard]] Result<int> enterParentOf(std::string_view path);

  private:
    struct Level {
        File folder;
        std::size_t length = 0;  // of its path, a prefix of `path_`
    };

    const DestinationTree& tree_;
    std::vector<Level> levels_;  // from the outermost on
    std::string path_;           // of the last level
};

// The part of a path behind its last "/", and in front of it (empty if there is none).
[[nodiscard]] std::string_view lastComponent(std::string_view path);
[[nodiscard]] std::string_view parentOf(std::string_view path);

// Whether a path is the folder's own or leads to something below it.
[[nodiscard]] bool isWithin(std::string_view path, std::string_view folder);

}  // namespace pellumar::archive
