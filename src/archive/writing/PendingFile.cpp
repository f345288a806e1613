#include "archive/writing/PendingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace pellumar::archive {

namespace {

constexpr mode_t kNewFileMode = 0666;

}  // namespace

PendingFile::PendingFile(File folder, UnfinishedFile file, std::string name, Existing existing)
    : folder_(std::move(folder)),
      file_(std::move(file)),
      name_(std::move(name)),
      existing_(existing) {}

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
    File folder = File::openAt(AT_FDCWD, parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (!folder.isOpen() && errno == EACCES) {
        // One that may be written and not listed; its own change cannot be flushed then.
        folder = File::openAt(AT_FDCWD, parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    }
    if (!folder.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    auto file = UnfinishedFile::create(folder.descriptor(), kNewFileMode, road);
    if (!file) {
        return passOn(file);
    }
    return PendingFile(std::move(folder), std::move(*file), path.filename().native(), existing);
}

Result<> PendingFile::commit() {
    Result<> done = file().flush();
    if (done) {
        done = file_.giveName(name_, existing_);
    }
    if (done) {
        done = folder_.flush();
        if (!done && done.error().systemError == EBADF) {
            done = {};  // one that may not be listed, see create()
        }
    }
    if (!done) {
        file_.discard();
        return done;
    }
    return file().close();
}

}  // namespace pellumar::archive
