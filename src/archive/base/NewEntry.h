#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/base/NewEncryption.h"
#include "archive/base/Password.h"

namespace pellumar::archive {

// The size of one read from a file where the caller has no wish: 16 KiB.
inline constexpr std::size_t kDefaultWriteChunkSize = 16UL * 1024;

// What is said of an entry beside its data. Unset, it is as the source has it.
struct EntryOptions {
    // 1 (fast) to 9 (small), 0 to store. Unset: chosen by what the data is like.
    std::optional<int> level = std::nullopt;
    // In UTF-8, at most 65,535 bytes.
    std::string comment = {};
    // As chmod takes them.
    std::optional<std::uint32_t> permissions = std::nullopt;
    std::optional<std::timespec> modified = std::nullopt;
    // Encrypts the data; names and sizes stay to be seen.
    std::shared_ptr<const Password> password = nullptr;
    NewEncryption encryption = NewEncryption::kAes256;
};

// What becomes an entry of an archive: its name there, where its data comes from, and what is said
// of it.
struct NewEntry {
    // What stands at a path: a file, or a folder without what is in it. A symbolic link is
    // followed, or with `linkAsLink` taken for itself.
    struct FromPath {
        std::filesystem::path path;
        bool linkAsLink = false;
        // Of one read from a file, 4 KiB to 1 MiB; others are taken for the nearest.
        std::size_t readSize = kDefaultWriteChunkSize;
    };
    struct Folder {};
    struct Link {
        std::string target;
    };
    // A file of these bytes.
    using Buffer = std::shared_ptr<const std::vector<std::uint8_t>>;
    // A file of whatever comes: fills the front of a buffer and returns how much, 0 at the end.
    // Called on the thread that adds the entry.
    using Stream = std::function<Result<std::size_t>(MutableBytes buffer)>;

    // In the archive, with "/" between components.
    std::string name;
    std::variant<FromPath, Folder, Link, Buffer, Stream> content = Folder{};
    EntryOptions options = {};
};

}  // namespace pellumar::archive
