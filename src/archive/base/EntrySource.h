#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace pellumar::archive {

// A file or folder to be added: its path below a base folder is the path of its entry.
struct EntrySource {
    std::string path;
    std::filesystem::path base;

    friend bool operator==(const EntrySource&, const EntrySource&) = default;
};

// The size of one read from a source where the caller has no wish: 16 KiB.
inline constexpr std::size_t kDefaultWriteChunkSize = 16UL * 1024;

}  // namespace pellumar::archive
