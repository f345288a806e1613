#include "archive/base/UnfinishedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "archive/base/FreeName.h"

namespace pellumar::archive {

namespace {

constexpr int kNameTries = 16;

// proc(5): the one way to name an open file that needs no rights.
std::string descriptorPath(const File& file) {
    return "/proc/self/fd/" + std::to_string(file.descriptor());
}

}  // namespace

UnfinishedFile::UnfinishedFile(UnfinishedFile&& other) noexcept
    : folder_(other.folder_),
      file_(std::move(other.file_)),
      temporary_(std::exchange(other.temporary_, {})) {}

UnfinishedFile& UnfinishedFile::operator=(UnfinishedFile&& other) noexcept {
    if (this != &other) {
        discard();
        folder_ = other.folder_;
        file_ = std::move(other.file_);
        temporary_ = std::exchange(other.temporary_, {});
    }
    return *this;
}

UnfinishedFile::~UnfinishedFile() {
    discard();
}

Result<UnfinishedFile> UnfinishedFile::create(int folder, mode_t mode, Road road) {
    UnfinishedFile made(folder);
    if (road == Road::kNamed || !made.openNameless(mode)) {
        if (auto opened = made.openNamed(mode); !opened) {
            return passOn(opened);
        }
    }
    return made;
}

bool UnfinishedFile::openNameless(mode_t mode) {
    File file = File::openAt(folder_, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    // Without /proc it could never get a name.
    if (!file.isOpen() || ::access(descriptorPath(file).c_str(), F_OK) != 0) {
        return false;
    }
    file_ = std::move(file);
    return true;
}

Result<> UnfinishedFile::openNamed(mode_t mode) {
    for (int i = 0; i < kNameTries; ++i) {
        std::string name = temporaryName();
        file_ = File::openAt(
            folder_, name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
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

Result<> UnfinishedFile::giveName(const std::string& name, Existing existing) {
    if (temporary_.empty()) {
        if (link(name)) {
            return {};
        }
        if (errno != EEXIST || existing == Existing::kRefuse || !linkTemporarily()) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
    }
    return moveFromTemporary(name, existing) ? Result<>() : systemFailure(ErrorCode::kWriteFailed);
}

bool UnfinishedFile::link(const std::string& name) const {
    return ::linkat(
               AT_FDCWD, descriptorPath(file_).c_str(), folder_, name.c_str(), AT_SYMLINK_FOLLOW) ==
           0;
}

bool UnfinishedFile::linkTemporarily() {
    for (int i = 0; i < kNameTries; ++i) {
        std::string name = temporaryName();
        if (link(name)) {
            temporary_ = std::move(name);
            return true;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return false;
}

bool UnfinishedFile::moveFromTemporary(const std::string& name, Existing existing) {
    const unsigned flags = existing == Existing::kRefuse ? RENAME_NOREPLACE : 0U;
    int moved = ::renameat2(folder_, temporary_.c_str(), folder_, name.c_str(), flags);
    if (moved != 0 && flags != 0 && errno == EINVAL) {
        // A file system that cannot refuse: what came meanwhile is looked for once more.
        struct stat there {};
        if (::fstatat(folder_, name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0) {
            errno = EEXIST;
        } else {
            moved = ::renameat(folder_, temporary_.c_str(), folder_, name.c_str());
        }
    }
    if (moved == 0) {
        temporary_.clear();
    }
    return moved == 0;
}

void UnfinishedFile::discard() {
    // Where it cannot be removed it takes no room.
    if (!temporary_.empty() && file_.isOpen()) {
        static_cast<void>(file_.truncate(0));
    }
    // Closed first: a network file system keeps an open file under another name when it is removed.
    file_ = File();
    if (!temporary_.empty()) {
        ::unlinkat(folder_, temporary_.c_str(), 0);
        temporary_.clear();
    }
}

}  // namespace pellumar::archive
