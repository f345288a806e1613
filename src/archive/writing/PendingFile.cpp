#include "archive/writing/PendingFile.h"

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace pellumar::archive {

namespace {

constexpr mode_t kNewFileMode = 0666;
constexpr int kNameTries = 16;

// Short, so that it fits wherever a name does; not hidden, so that it is seen and cleared away.
std::string randomName() {
    std::uint64_t number = 0;
    static_cast<void>(::getrandom(&number, sizeof(number), 0));
    std::array<char, 32> text{};
    const int size = std::snprintf(
        text.data(), text.size(), "zip-%016llx.part", static_cast<unsigned long long>(number));
    return {text.data(), static_cast<std::size_t>(size)};
}

// proc(5): the one way to name an open file that needs no rights.
std::string descriptorPath(const File& file) {
    return "/proc/self/fd/" + std::to_string(file.descriptor());
}

}  // namespace

PendingFile::PendingFile(File folder, std::string name, Existing existing)
    : folder_(std::move(folder)), name_(std::move(name)), existing_(existing) {}

PendingFile::PendingFile(PendingFile&& other) noexcept
    : folder_(std::move(other.folder_)),
      name_(std::move(other.name_)),
      existing_(other.existing_),
      file_(std::move(other.file_)),
      temporary_(std::exchange(other.temporary_, {})) {}

PendingFile::~PendingFile() {
    discard();
}

Result<PendingFile> PendingFile::create(const std::filesystem::path& path,
                                        Existing existing,
                                        Road road) {
    struct stat there {};
    const bool isThere = ::lstat(path.c_str(), &there) == 0;
    if (isThere && existing == Existing::kRefuse) {
        return failure(ErrorCode::kAlreadyExists);
    }
    if (!path.has_filename() || (isThere && S_ISDIR(there.st_mode))) {
        errno = EISDIR;
        return systemFailure(ErrorCode::kOpenFailed);
    }
    if (!isThere && errno != ENOENT) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    const std::filesystem::path parent = path.has_parent_path() ? path.parent_path() : ".";
    File folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() && errno == EACCES) {
        // One that may be written and not listed; its own change cannot be flushed then.
        folder = File(::open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    if (!folder.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    PendingFile pending(std::move(folder), path.filename().native(), existing);
    if (road == Road::kNamed || !pending.openNameless()) {
        if (auto opened = pending.openNamed(); !opened) {
            return passOn(opened);
        }
    }
    return pending;
}

bool PendingFile::openNameless() {
    File file(::openat(folder_.descriptor(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileMode));
    // Without /proc it could never get a name.
    if (!file.isOpen() || ::access(descriptorPath(file).c_str(), F_OK) != 0) {
        return false;
    }
    file_ = std::move(file);
    return true;
}

Result<> PendingFile::openNamed() {
    for (int i = 0; i < kNameTries; ++i) {
        std::string name = randomName();
        file_ = File(::openat(folder_.descriptor(),
                              name.c_str(),
                              O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                              kNewFileMode));
        if (file_.isOpen()) {
            temporary_ = std::move(name);
            return {};
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return systemFailure(ErrorCode::kOpenFailed);
}

Result<> PendingFile::commit() {
    Result<> done = file_.flush();
    if (done) {
        done = giveName();
    }
    if (done && ::fsync(folder_.descriptor()) != 0 && errno != EBADF && errno != EINVAL) {
        done = systemFailure(ErrorCode::kWriteFailed);
    }
    if (!done) {
        discard();
        return done;
    }
    return file_.close();
}

Result<> PendingFile::giveName() {
    const int folder = folder_.descriptor();
    if (temporary_.empty()) {
        if (::linkat(AT_FDCWD,
                     descriptorPath(file_).c_str(),
                     folder,
                     name_.c_str(),
                     AT_SYMLINK_FOLLOW) == 0) {
            return {};
        }
        if (errno != EEXIST || existing_ == Existing::kRefuse || !linkTemporarily()) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
    }
    return moveFromTemporary() ? Result<>() : systemFailure(ErrorCode::kWriteFailed);
}

bool PendingFile::linkTemporarily() {
    for (int i = 0; i < kNameTries; ++i) {
        std::string name = randomName();
        if (::linkat(AT_FDCWD,
                     descriptorPath(file_).c_str(),
                     folder_.descriptor(),
                     name.c_str(),
                     AT_SYMLINK_FOLLOW) == 0) {
            temporary_ = std::move(name);
            return true;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return false;
}

bool PendingFile::moveFromTemporary() {
    const int folder = folder_.descriptor();
    const unsigned flags = existing_ == Existing::kRefuse ? RENAME_NOREPLACE : 0U;
    int moved = ::renameat2(folder, temporary_.c_str(), folder, name_.c_str(), flags);
    if (moved != 0 && flags != 0 && errno == EINVAL) {
        // A file system that cannot refuse: what came meanwhile is looked for once more.
        struct stat there {};
        if (::fstatat(folder, name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0) {
            errno = EEXIST;
        } else {
            moved = ::renameat(folder, temporary_.c_str(), folder, name_.c_str());
        }
    }
    if (moved == 0) {
        temporary_.clear();
    }
    return moved == 0;
}

void PendingFile::discard() {
    // Closed first: a network file system keeps an open file under another name when it is removed.
    file_ = File();
    if (!temporary_.empty()) {
        ::unlinkat(folder_.descriptor(), temporary_.c_str(), 0);
        temporary_.clear();
    }
}

}  // namespace pellumar::archive
