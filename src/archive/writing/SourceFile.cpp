#include "archive/writing/SourceFile.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <string>
#include <system_error>
#include <utility>

#include "archive/base/Crc32.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kSmallestRead = 4UL * 1024;
constexpr std::size_t kLargestRead = 1024UL * 1024;

Failure unreadable(int systemError) {
    return Failure(Error{.code = ErrorCode::kSourceUnreadable,
                         .entry = {},
                         .offset = 0,
                         .systemError = systemError});
}

bool isSupported(const struct stat& status, const FileIdentity& archive) {
    const bool isArchive = FileIdentity{.device = status.st_dev, .inode = status.st_ino} == archive;
    return !isArchive && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

bool isSame(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

// The time of change as well: some programs set that of modification back when they have written.
bool isUnchanged(const struct stat& now, const struct stat& before) {
    return now.st_size == before.st_size && isSame(now.st_mtim, before.st_mtim) &&
           isSame(now.st_ctim, before.st_ctim);
}

}  // namespace

Result<SourceFile> SourceFile::open(const std::filesystem::path& path,
                                    const FileIdentity& archive) {
    // Looked at first: opening a device can do something.
    struct stat before {};
    if (::stat(path.c_str(), &before) != 0) {
        return unreadable(errno);
    }
    if (!isSupported(before, archive)) {
        return failure(ErrorCode::kSourceNotSupported);
    }
    if (S_ISDIR(before.st_mode)) {
        return SourceFile(File(), before);
    }
    auto file = File::openForReading(path);
    if (!file) {
        return unreadable(file.error().systemError);
    }
    // Another may stand there by now; what was opened counts.
    const auto status = file->status();
    if (!status) {
        return unreadable(status.error().systemError);
    }
    if (!isSupported(*status, archive) || S_ISDIR(status->st_mode)) {
        return failure(ErrorCode::kSourceNotSupported);
    }
    if (status->st_size == 0) {
        // Files that the system makes up as they are read tell no size, and would pass as empty.
        std::uint8_t byte = 0;
        const auto count = file->readAt(0, MutableBytes(&byte, 1));
        if (!count) {
            return unreadable(count.error().systemError);
        }
        if (*count > 0) {
            return failure(ErrorCode::kSourceChanged);
        }
    }
    return SourceFile(std::move(*file), *status);
}

Result<SourceFile> SourceFile::openLink(const std::filesystem::path& path,
                                        const FileIdentity& archive) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return unreadable(errno);
    }
    if (!S_ISLNK(status.st_mode)) {
        return open(path, archive);
    }
    std::error_code error;
    const std::string target = std::filesystem::read_symlink(path, error).native();
    if (error) {
        return unreadable(error.value());
    }
    SourceFile link =
        ofMemory(EntryType::kSymbolicLink,
                 std::make_shared<std::vector<std::uint8_t>>(target.begin(), target.end()));
    link.status_.st_mtim = status.st_mtim;
    return link;
}

SourceFile SourceFile::ofMemory(EntryType type,
                                std::shared_ptr<const std::vector<std::uint8_t>> bytes) {
    SourceFile source;
    source.memory_ = std::move(bytes);
    source.status_.st_size = source.memory_ ? static_cast<off_t>(source.memory_->size()) : off_t{0};
    source.status_.st_mode = type == EntryType::kFile     ? S_IFREG | 0644U
                             : type == EntryType::kFolder ? S_IFDIR | 0755U
                                                          : S_IFLNK | 0777U;
    std::timespec_get(&source.status_.st_mtim, TIME_UTC);
    return source;
}

std::uint64_t SourceFile::size() const {
    return isFolder() ? 0 : static_cast<std::uint64_t>(status_.st_size);
}

Result<std::uint32_t> SourceFile::read(std::uint64_t offset,
                                       MutableBytes buffer,
                                       std::size_t readSize) const {
    if (!file_.isOpen()) {
        if (!buffer.empty()) {
            std::copy_n(memory_->begin() + static_cast<std::ptrdiff_t>(offset),
                        buffer.size(),
                        buffer.begin());
        }
        return crc32(kCrc32OfNothing, buffer);
    }
    const std::size_t most = std::clamp(readSize, kSmallestRead, kLargestRead);
    std::uint32_t crc = kCrc32OfNothing;
    while (!buffer.empty()) {
        const MutableBytes part = buffer.first(std::min(most, buffer.size()));
        const auto count = file_.readAt(offset, part);
        if (!count) {
            return unreadable(count.error().systemError);
        }
        if (*count < part.size()) {
            return failure(ErrorCode::kSourceChanged);
        }
        crc = crc32(crc, part);
        offset += part.size();
        buffer = buffer.subspan(part.size());
    }
    const auto now = file_.status();
    if (!now) {
        return unreadable(now.error().systemError);
    }
    if (!isUnchanged(*now, status_)) {
        return failure(ErrorCode::kSourceChanged);
    }
    return crc;
}

}  // namespace pellumar::archive
