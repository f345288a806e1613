#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "archive/base/Entry.h"
#include "archive/base/NewEntry.h"
#include "cli/Exclusions.h"
#include "cli/Messages.h"

namespace pellumar {

// What is to go into an archive: the files, folders and links that were named, and what is in the
// folders, each folder's in the order of their bytes. Symbolic links are not followed, but for one
// that was named with a "/" at its end. Holds names only; files are opened later.
class SourceTree {
  public:
    // What is `archive`, on the disk, is left out. `messages` is told what is left out and why.
    SourceTree(const std::vector<std::string>& exclude,
               std::optional<struct stat> archive,
               Messages& messages);

    // Adds what was named. False, and it has been told why, if it is not there or its name is
    // already that of something else.
    bool add(const std::filesystem::path& named, bool withAllBelow);

    [[nodiscard]] std::size_t size() const { return sources_.size(); }
    // Of all files.
    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }
    // Whether something below what was named could not be read, and is left out.
    [[nodiscard]] bool isIncomplete() const { return isIncomplete_; }

    // The links, by their paths, that lead out of the archive: extracting refuses it with them.
    [[nodiscard]] std::vector<std::string> linksThatLeave() const;

    // The entry for the source of this index; its options are yet to be set.
    [[nodiscard]] archive::NewEntry entry(std::size_t index) const;

  private:
    // Something that was named: where it is, and its name in the archive, empty for "." and its
    // like.
    struct Root {
        std::string path;
        std::string name;
    };
    struct Source {
        std::uint32_t root;
        archive::EntryType type;  // when it was found
        std::string below;        // its path from there; empty: the root itself
    };

    // What its type is, is yet to be seen.
    [[nodiscard]] Source atLastRoot(const std::string& below) const;
    // What is at this path below the last root. False if its name is already something else's.
    [[nodiscard]] bool take(const std::string& below, bool withAllBelow);
    [[nodiscard]] bool takeFolder(const std::string& below);
    // Which source has this name already; remembers that this one has it otherwise.
    [[nodiscard]] std::optional<std::size_t> holderOf(const std::string& name);
    [[nodiscard]] std::string pathOf(const Source& source) const;
    [[nodiscard]] std::string nameOf(const Source& source) const;

    const Exclusions exclusions_;
    const std::optional<struct stat> archive_;
    Messages& messages_;
    std::vector<Root> roots_;
    std::vector<Source> sources_;
    // By name. Empty as long as there is one root, below which no name comes twice.
    std::unordered_map<std::string, std::size_t> holders_;
    std::uint64_t bytes_ = 0;
    bool isIncomplete_ = false;
};

}  // namespace pellumar
