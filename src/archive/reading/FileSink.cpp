#include "archive/reading/FileSink.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "archive/base/FreeName.h"
#include "archive/reading/DestinationTree.h"

namespace pellumar::archive {

FileSink::FileSink(int folder, const Entry& entry, ExistingFiles existing)
    : folder_(folder), entry_(entry), existing_(existing), name_(lastComponent(entry.path)) {}

FileSink::~FileSink() {
    if (named_) {
        // Where the name cannot be taken back, no part of the data stays under it.
        if (file_.isOpen()) {
            static_cast<void>(file_.truncate(0));
        }
        // A network file system keeps an open file under another name when it is removed.
        file_ = File();
        ::unlinkat(folder_, name_.c_str(), 0);
    }
}

Result<> FileSink::expectMore(std::uint64_t bytes) {
    return DestinationTree::roomAt(folder_).bytes < bytes ? failure(ErrorCode::kTooLarge)
                                                          : Result<>();
}

Result<> FileSink::write(ByteView bytes) {
    if (!unfinished_.isOpen()) {
        if (auto made = makeUnfinished(); !made) {
            return made;
        }
    }
    return unfinished_.file().write(bytes);
}

Result<> FileSink::makeUnfinished() {
    // Told now, not when all of it is unpacked.
    struct stat there {};
    const bool isThere = ::fstatat(folder_, name_.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0;
    const bool replaces = existing_ == ExistingFiles::kOverwrite && !S_ISDIR(there.st_mode);
    if (isThere && !replaces && existing_ != ExistingFiles::kRename) {
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
    return {};
}

Result<> FileSink::writeVerified(ByteView bytes) {
    if (auto made = makeNamed(); !made) {
        const bool replaces = existing_ == ExistingFiles::kOverwrite;
        return replaces && made.error().code == ErrorCode::kAlreadyExists ? write(bytes) : made;
    }
    named_ = true;
    return file_.write(bytes);
}

template <typename Make>
Result<> FileSink::underFreeName(const Make& make) {
    const std::string wanted = name_;
    for (std::size_t number = kFirstNumber;; ++number) {
        auto made = make();
        if (made || made.error().code != ErrorCode::kAlreadyExists ||
            existing_ != ExistingFiles::kRename || number > kMostNumbers) {
            return made;
        }
        name_ = numberedName(wanted, number);
        renamed_ = true;
    }
}

Result<> FileSink::makeNamed() {
    return underFreeName([this]() -> Result<> {
        // O_EXCL neither follows a link nor takes what is there.
        file_ = File::openAt(folder_,
                             name_.c_str(),
                             O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                             static_cast<mode_t>(entry_.permissions));
        return file_.isOpen() ? Result<>() : systemFailure(ErrorCode::kWriteFailed);
    });
}

Result<> FileSink::nameUnfinished() {
    const auto policy = existing_ == ExistingFiles::kOverwrite ? UnfinishedFile::Existing::kReplace
                                                               : UnfinishedFile::Existing::kRefuse;
    return underFreeName([this, policy] { return unfinished_.giveName(name_, policy); });
}

Result<> FileSink::finish(bool* restored) {
    const File& file = named_ ? file_ : unfinished_.file();
    const std::array<timespec, 2> times = {{{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, entry_.modified}};
    *restored = ::futimens(file.descriptor(), times.data()) == 0;
    if (!named_) {
        return finishUnfinished();
    }
    if (auto closed = file_.close(); !closed) {
        return closed;
    }
    named_ = false;
    return {};
}

Result<> FileSink::finishUnfinished() {
    // What closing has to tell, some file systems that data could not be written, has to be known
    // before another file is replaced. To get its name this one has to be open.
    File copy(::fcntl(unfinished_.file().descriptor(), F_DUPFD_CLOEXEC, 0));
    if (!copy.isOpen()) {
        return systemFailure(ErrorCode::kWriteFailed);
    }
    if (auto closed = copy.close(); !closed) {
        return closed;
    }
    return nameUnfinished();
}

}  // namespace pellumar::archive
