#include "archive/reading/FileSink.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "archive/reading/DestinationTree.h"

namespace pellumar::archive {

FileSink::FileSink(int folder, const Entry& entry)
    : folder_(folder), entry_(entry), name_(lastComponent(entry.path)) {}

FileSink::~FileSink() {
    if (named_) {
        // A network file system keeps an open file under another name when it is removed.
        file_ = File();
        ::unlinkat(folder_, name_.c_str(), 0);
    }
}

Result<> FileSink::expectMore(std::uint64_t bytes) {
    struct statvfs status {};
    if (::fstatvfs(folder_, &status) == 0 && status.f_bavail < bytes / status.f_frsize) {
        return failure(ErrorCode::kTooLarge);
    }
    return {};
}

Result<> FileSink::write(ByteView bytes) {
    if (!unfinished_.isOpen()) {
        // Told now, not when all of it is unpacked.
        struct stat there {};
        if (::fstatat(folder_, name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0) {
            return failure(ErrorCode::kAlreadyExists);
        }
        auto made = UnfinishedFile::create(folder_, static_cast<mode_t>(entry_.permissions));
        if (!made) {
            Error error = std::move(made.error());
            if (error.code == ErrorCode::kOpenFailed) {
                error.code = ErrorCode::kWriteFailed;  // it is the destination, not the archive
            }
            return Failure(std::move(error));
        }
        unfinished_ = std::move(*made);
    }
    return unfinished_.file().write(bytes);
}

Result<> FileSink::writeVerified(ByteView bytes) {
    // O_EXCL neither follows a link nor takes what is there.
    file_ = File(::openat(folder_,
                          name_.c_str(),
                          O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                          static_cast<mode_t>(entry_.permissions)));
    if (!file_.isOpen()) {
        return systemFailure(ErrorCode::kWriteFailed);
    }
    named_ = true;
    return file_.write(bytes);
}

Result<> FileSink::finish(bool* restored) {
    if (unfinished_.isOpen()) {
        if (auto named = unfinished_.giveName(name_, UnfinishedFile::Existing::kRefuse); !named) {
            return named;
        }
        file_ = std::move(unfinished_.file());
        named_ = true;
    }
    const std::array<timespec, 2> times = {{{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, entry_.modified}};
    *restored = ::futimens(file_.descriptor(), times.data()) == 0;
    if (auto closed = file_.close(); !closed) {
        return closed;
    }
    named_ = false;
    return {};
}

}  // namespace pellumar::archive
