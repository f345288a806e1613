#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/Warning.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// What is to be made of an archive's entries, and in what pieces of work. Views and pointers lead
// into the table.
struct ExtractionPlan {
    struct Folder {
        std::string_view path;
        // Null for a folder that is only mentioned in the paths of others.
        const EntryData* data = nullptr;
        // Whether more comes into it than folders and the files of a single task.
        bool filledByMany = false;
    };
    // A run of `files` for one thread, all in the same folder and in the archive's order.
    struct Task {
        std::size_t first = 0;
        std::size_t count = 0;
        // Which of `folders` they are in; kTop for the destination itself.
        std::size_t folder = kTop;
    };
    static constexpr std::size_t kTop = static_cast<std::size_t>(-1);

    std::vector<Folder> folders;  // in pathBefore's order, so one stands behind that which holds it
    std::vector<const EntryData*> files;
    std::vector<Task> tasks;  // the longest first
    std::vector<const EntryData*> links;
    std::uint64_t bytes = 0;  // of all files, unpacked
    Warnings warnings;

    [[nodiscard]] std::size_t nodes() const { return folders.size() + files.size() + links.size(); }

    // Whether one of `folders` has this path.
    [[nodiscard]] bool holdsFolder(std::string_view path) const;

    // What it all takes of a file system: files rounded up to blocks, and a block for each folder.
    // UINT64_MAX if that does not fit into 64 bits.
    [[nodiscard]] std::uint64_t bytesOnDisk(std::uint64_t blockSize) const;
};

// Orders paths so that what is in a folder follows the folder at once: "/" is below every other
// character ("a", "a/b", "a.b").
[[nodiscard]] bool pathBefore(std::string_view a, std::string_view b);

// The limits of the place that the files go to.
struct PathLimits {
    std::size_t longestName = 0;  // of one component, in bytes
    std::size_t longestPath = 0;  // of a path below the destination, in bytes
};

// Sorts the entries out: of several with the same path the last one is taken. kConflictingNames if
// a path is a file (or link) and a folder as well, kNameTooLong, kTooLarge if the sum of all sizes
// does not fit into 64 bits.
[[nodiscard]] Result<ExtractionPlan> planExtraction(const EntryTable& table,
                                                    const PathLimits& limits);

}  // namespace pellumar::archive
