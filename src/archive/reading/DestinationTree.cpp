#include "archive/reading/DestinationTree.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <limits>

namespace pellumar::archive {

namespace {

constexpr int kEnterFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr mode_t kNewFolderMode = 0777;
constexpr std::uint32_t kAllPermissions = 0777;

// umask(2) can only be read by changing it, which other threads would feel.
std::uint32_t readUmask() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "Umask:") {
            std::uint32_t mask = 0;
            return status >> std::oct >> mask ? mask : kAllPermissions;
        }
    }
    return kAllPermissions;
}

}  // namespace

Result<DestinationTree> DestinationTree::open(const std::filesystem::path& path) {
    if (::mkdir(path.c_str(), kNewFolderMode) != 0 && errno != EEXIST) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    File root(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!root.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    return DestinationTree(std::move(root), readUmask());
}

Result<File> DestinationTree::enter(std::string_view folder) const {
    const std::string path(folder.empty() ? "." : folder);
    open_how how{};
    how.flags = static_cast<std::uint64_t>(kEnterFlags);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS;
    const long descriptor =
        ::syscall(SYS_openat2, root_.descriptor(), path.c_str(), &how, sizeof(how));
    if (descriptor >= 0) {
        return File(static_cast<int>(descriptor));
    }
    if (errno == ENOSYS || errno == EPERM || errno == EAGAIN) {
        return enterStepByStep(folder);
    }
    return systemFailure(ErrorCode::kOpenFailed);
}

Result<File> DestinationTree::enterStepByStep(std::string_view folder) const {
    return descend(root_.descriptor(), folder);
}

Result<File> DestinationTree::descend(int from, std::string_view folder) {
    File current(::openat(from, ".", kEnterFlags));
    while (current.isOpen() && !folder.empty()) {
        const std::size_t end = std::min(folder.find('/'), folder.size());
        const std::string component(folder.substr(0, end));
        current = File(::openat(current.descriptor(), component.c_str(), kEnterFlags));
        folder.remove_prefix(std::min(end + 1, folder.size()));
    }
    if (!current.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    return current;
}

DestinationTree::Room DestinationTree::room() const {
    constexpr std::uint64_t kUntold = std::numeric_limits<std::uint64_t>::max();
    struct statvfs status {};
    if (::fstatvfs(root_.descriptor(), &status) != 0) {
        return {.bytes = kUntold, .nodes = kUntold, .blockSize = 1};
    }
    // File systems of the network, and those that make nodes as they need them, say 0 of 0.
    return {.bytes = status.f_blocks == 0 ? kUntold : status.f_bavail * status.f_frsize,
            .nodes = status.f_files == 0 ? kUntold : status.f_favail,
            .blockSize = std::max<std::uint64_t>(status.f_frsize, 1)};
}

std::size_t DestinationTree::longestName() const {
    const long longest = ::fpathconf(root_.descriptor(), _PC_NAME_MAX);
    return longest > 0 ? static_cast<std::size_t>(longest) : NAME_MAX;
}

Result<int> FolderCursor::enterParentOf(std::string_view path) {
    const std::string_view parent = parentOf(path);
    if (!folder_.isOpen() || parent != path_) {
        // A neighbour below is near; long paths are not walked again for each of their folders.
        const bool isBelow = folder_.isOpen() && parent.size() > path_.size() &&
                             parent.starts_with(path_) &&
                             (path_.empty() || parent[path_.size()] == '/');
        const std::size_t known = path_.empty() ? 0 : path_.size() + 1;
        auto entered = isBelow
                           ? DestinationTree::descend(folder_.descriptor(), parent.substr(known))
                           : tree_.enter(parent);
        if (!entered) {
            return passOn(entered);
        }
        folder_ = std::move(*entered);
        path_ = parent;
    }
    return folder_.descriptor();
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
