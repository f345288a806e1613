#include "archive/reading/DestinationTree.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <linux/magic.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

namespace pellumar::archive {

namespace {

constexpr int kEnterFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr mode_t kNewFolderMode = 0777;
// How many descriptors a cursor may hold; other folders are reached from the nearest.
constexpr std::size_t kMostLevels = 16;
// What compressing file systems make of a file at best: a block of every 128 KiB, as btrfs does.
constexpr std::uint64_t kMostShrinking = 32;

// Whether what is written certainly takes as much room as it has bytes. Others may compress it, or
// leave out what is there already, themselves or on a server.
bool keepsBytesAsTheyAre(const struct statfs& status) {
    const auto type = static_cast<unsigned long>(status.f_type);
    return type == EXT4_SUPER_MAGIC || type == TMPFS_MAGIC || type == XFS_SUPER_MAGIC ||
           type == MSDOS_SUPER_MAGIC || type == EXFAT_SUPER_MAGIC;
}

}  // namespace

Result<DestinationTree> DestinationTree::open(const std::filesystem::path& path) {
    if (::mkdir(path.c_str(), kNewFolderMode) != 0 && errno != EEXIST) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    File root = File::openAt(AT_FDCWD, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (!root.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    return DestinationTree(std::move(root));
}

Result<File> DestinationTree::enter(int from, std::string_view folder) {
    const std::string path(folder.empty() ? "." : folder);
    open_how how{};
    how.flags = static_cast<std::uint64_t>(kEnterFlags);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS;
    const long descriptor = ::syscall(SYS_openat2, from, path.c_str(), &how, sizeof(how));
    if (descriptor >= 0) {
        return File(static_cast<int>(descriptor));
    }
    if (errno == ENOSYS || errno == EPERM || errno == EAGAIN || errno == EINTR) {
        return enterStepByStep(from, folder);
    }
    return systemFailure(ErrorCode::kOpenFailed);
}

Result<File> DestinationTree::enterStepByStep(int from, std::string_view folder) {
    File current = File::openAt(from, ".", kEnterFlags);
    while (current.isOpen() && !folder.empty()) {
        const std::size_t end = std::min(folder.find('/'), folder.size());
        const std::string component(folder.substr(0, end));
        current = File::openAt(current.descriptor(), component.c_str(), kEnterFlags);
        folder.remove_prefix(std::min(end + 1, folder.size()));
    }
    if (!current.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    return current;
}

DestinationTree::Room DestinationTree::room() const {
    return roomAt(root_.descriptor());
}

DestinationTree::Room DestinationTree::roomAt(int descriptor) {
    constexpr std::uint64_t kUntold = std::numeric_limits<std::uint64_t>::max();
    struct statfs status {};
    if (::fstatfs(descriptor, &status) != 0) {
        return {.free = kUntold, .bytes = kUntold, .nodes = kUntold, .blockSize = 1};
    }
    const auto blockSize = static_cast<std::uint64_t>(
        status.f_frsize > 0 ? status.f_frsize : std::max<long>(status.f_bsize, 1));
    const std::uint64_t factor = keepsBytesAsTheyAre(status) ? 1 : kMostShrinking;
    // File systems of the network, and those that make nodes as they need them, say 0 of 0.
    const std::uint64_t free = status.f_blocks == 0 ? kUntold : status.f_bavail * blockSize;
    std::uint64_t bytes = kUntold;
    if (__builtin_mul_overflow(free, factor, &bytes)) {
        bytes = kUntold;
    }
    return {.free = free,
            .bytes = bytes,
            .nodes = status.f_files == 0 ? kUntold : status.f_ffree,
            .blockSize = factor == 1 ? blockSize : 1};
}

std::size_t DestinationTree::longestName() const {
    const long longest = ::fpathconf(root_.descriptor(), _PC_NAME_MAX);
    return longest > 0 ? static_cast<std::size_t>(longest) : NAME_MAX;
}

Result<int> FolderCursor::enterParentOf(std::string_view path) {
    const std::string_view parent = parentOf(path);
    while (!levels_.empty() &&
           !isWithin(parent, std::string_view(path_).substr(0, levels_.back().length))) {
        levels_.pop_back();
    }
    const std::size_t known = levels_.empty() ? 0 : levels_.back().length;
    const int from = levels_.empty() ? tree_.descriptor() : levels_.back().folder.descriptor();
    if (parent.size() == known) {
        return from;
    }
    auto entered = DestinationTree::enter(from, parent.substr(known == 0 ? 0 : known + 1));
    if (!entered) {
        return passOn(entered);
    }
    const int descriptor = entered->descriptor();
    if (levels_.size() == kMostLevels) {
        // Not the last: what comes next is mostly near it, however deep that is.
        levels_.erase(levels_.begin() + kMostLevels / 2);
    }
    levels_.push_back({.folder = std::move(*entered), .length = parent.size()});
    path_ = parent;
    return descriptor;
}

bool isWithin(std::string_view path, std::string_view folder) {
    return folder.empty() || path == folder ||
           (path.size() > folder.size() && path[folder.size()] == '/' && path.starts_with(folder));
}

std::string_view lastComponent(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view parentOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

}  // namespace pellumar::archive
