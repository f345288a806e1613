#include "archive/writing/SourceFile.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "archive/base/Crc32.h"

namespace pellumar::archive {

namespace {

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

std::uint64_t SourceFile::size() const {
    return isFolder() ? 0 : static_cast<std::uint64_t>(status_.st_size);
}

Result<std::uint32_t> SourceFile::read(std::uint64_t offset,
                                       MutableBytes buffer,
                                       std::size_t readSize) const {
    std::uint32_t crc = kCrc32OfNothing;
    while (!buffer.empty()) {
        const MutableBytes part = buffer.first(std::min(readSize, buffer.size()));
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
