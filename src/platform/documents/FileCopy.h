#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <system_error>
#include <tl/expected.hpp>

namespace pellumar {

// Why a copy failed, and at which path.
struct FileCopyError {
    std::filesystem::path path;
    std::error_code reason;

    // Whether it was the caller who stopped it.
    [[nodiscard]] bool isCancelled() const { return reason == std::errc::operation_canceled; }
};

// Is told the bytes that each step has copied; false stops the copying.
using FileCopyProgress = std::function<bool(std::uint64_t bytes)>;

// Copies a regular file, or a folder with all that is in it, to `to`, where nothing may stand yet.
// Files share their blocks with the originals where the file system can. Permissions and times of
// change are kept, but for the owner, who may always write; symbolic links inside are copied as
// links; what is neither is passed over. After a failure nothing of ours is left at `to`. For a
// thread that may block.
[[nodiscard]] tl::expected<void, FileCopyError> copyTree(const std::filesystem::path& from,
                                                         const std::filesystem::path& to,
                                                         const FileCopyProgress& progress);

// Makes a copy of the open file `from` at `to`, where nothing stands yet, that takes no room and no
// time. False if the file system cannot do that: then nothing is left at `to`.
[[nodiscard]] bool shareBlocks(int from, const std::filesystem::path& to);

// The bytes that copyTree would copy; what cannot be read counts nothing.
[[nodiscard]] std::uint64_t treeSize(const std::filesystem::path& path);

// `folder` / `name`, or the first of "name (2).ext", "name (3).ext", … that does not exist, or of
// which that cannot be told: who makes it learns why, and must not replace anything. See
// numberedName().
[[nodiscard]] std::filesystem::path freePath(const std::filesystem::path& folder,
                                             const std::filesystem::path& name);

}  // namespace pellumar
