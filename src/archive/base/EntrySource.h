#pragma once

#include <filesystem>
#include <string>

namespace pellumar::archive {

// A file or folder to be added: its path below a base folder is the path of its entry.
struct EntrySource {
    std::string path;
    std::filesystem::path base;

    friend bool operator==(const EntrySource&, const EntrySource&) = default;
};

}  // namespace pellumar::archive
