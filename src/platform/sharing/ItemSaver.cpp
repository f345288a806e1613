#include "platform/sharing/ItemSaver.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

std::error_code lastSavingError() {
    return {errno, std::generic_category()};
}

std::error_code flush(const fs::path& path, int (*how)(int) = ::fsync) {
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (number < 0) {
        // One may write into a folder and not read it.
        return errno == EACCES ? std::error_code() : lastSavingError();
    }
    const bool isFlushed = how(number) == 0;
    // Not every file system can, and those that cannot have nothing to wait for.
    const std::error_code failure =
        isFlushed || errno == EINVAL || errno == ENOSYS ? std::error_code() : lastSavingError();
    ::close(number);
    return failure;
}

// Waits until all that is in the folder is on the device.
std::error_code flushTree(const fs::path& folder) {
    // Each by itself makes the device wait each time; a whole file system may have much of others.
    constexpr std::size_t kMostFlushedAlone = 64;
    std::vector<fs::path> paths{folder};
    std::error_code failure;
    fs::recursive_directory_iterator each(folder, failure);
    for (; !failure && each != fs::recursive_directory_iterator(); each.increment(failure)) {
        if (!each->is_symlink(failure)) {
            paths.push_back(each->path());
        }
        if (paths.size() > kMostFlushedAlone) {
            return flush(folder, ::syncfs);
        }
    }
    for (std::size_t i = 0; !failure && i < paths.size(); ++i) {
        failure = flush(paths[i]);
    }
    return failure;
}

// Renames, but never over anything.
bool moveTo(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    // Some file systems do not know the flag.
    if (errno != EINVAL && errno != ENOSYS) {
        return false;
    }
    std::error_code unknown;
    const fs::file_status there = fs::symlink_status(to, unknown);
    if (there.type() != fs::file_type::not_found) {
        errno = fs::exists(there) ? EEXIST : unknown.value();
        return false;
    }
    return std::rename(from.c_str(), to.c_str()) == 0;
}

fs::path folderName(QString name) {
    name.replace('/', '_').remove(QChar(0));
    return name == "." || name == ".." ? fs::path("_") : fs::path(name.toStdString());
}

}  // namespace

ItemSaver::Result ItemSaver::save(const QList<QUrl>& items,
                                  const fs::path& folder,
                                  const QString& newFolder) const {
    const StagingFolder staging(folder, notes_);
    if (staging.path().empty()) {
        return tl::unexpected(FileCopyError{folder, lastSavingError()});
    }
    const fs::path inner =
        newFolder.isEmpty() ? fs::path() : staging.path() / folderName(newFolder);
    std::error_code failure;
    if (!inner.empty() && !fs::create_directory(inner, failure)) {
        return tl::unexpected(FileCopyError{folder, failure});
    }
    auto staged = copyAll(items, inner.empty() ? staging.path() : inner);
    if (!staged) {
        return tl::unexpected(staged.error());
    }
    failure = flushTree(staging.path());
    if (!failure && !isGoingOn_()) {
        failure = make_error_code(std::errc::operation_canceled);
    }
    if (failure) {
        return tl::unexpected(FileCopyError{folder, failure});
    }
    auto settled = settle(inner.empty() ? *staged : Copies{{inner, inner.filename()}}, folder);
    if (!settled || inner.empty()) {
        return settled;
    }
    QList<QUrl> inside;
    for (const Copy& copy : *staged) {
        inside.append(fileUrl(*localPath(settled->first()) / copy.path.filename()));
    }
    return inside;
}

ItemSaver::Result ItemSaver::settle(const Copies& copies, const fs::path& folder) const {
    QList<QUrl> places;
    std::error_code failure;
    for (const Copy& copy : copies) {
        fs::path place;
        bool isMoved = false;
        do {
            place = freePath(folder, copy.name);
            isMoved = moveTo(copy.path, place);
        } while (!isMoved && errno == EEXIST);
        if (!isMoved) {
            failure = lastSavingError();
            break;
        }
        places.append(fileUrl(place));
    }
    // The names have to be on the device as well.
    failure = failure ? failure : flush(folder);
    // That may have taken long.
    if (!failure && !isGoingOn_()) {
        failure = make_error_code(std::errc::operation_canceled);
    }
    if (!failure) {
        return places;
    }
    for (const QUrl& each : places) {
        std::error_code ignored;
        fs::remove_all(*localPath(each), ignored);
    }
    return tl::unexpected(FileCopyError{folder, failure});
}

tl::expected<ItemSaver::Copies, FileCopyError> ItemSaver::copyAll(const QList<QUrl>& items,
                                                                  const fs::path& to) const {
    Copies copies;
    for (const QUrl& item : items) {
        const auto from = localPath(item);
        if (!from || !isGoingOn_()) {
            const auto reason =
                from ? std::errc::operation_canceled : std::errc::no_such_file_or_directory;
            return tl::unexpected(
                FileCopyError{item.fileName().toStdString(), make_error_code(reason)});
        }
        const fs::path plain = withoutTrailingSlash(*from);
        fs::path copy = freePath(to, plain.filename());
        const auto copied =
            copyTree(plain, copy, [this](std::uint64_t /*bytes*/) { return isGoingOn_(); });
        if (!copied) {
            return tl::unexpected(copied.error());
        }
        copies.push_back({std::move(copy), plain.filename()});
    }
    return copies;
}

}  // namespace pellumar
