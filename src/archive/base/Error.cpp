#include "archive/base/Error.h"

#include <cerrno>
#include <system_error>

namespace pellumar::archive {

std::string_view describe(ErrorCode code) {
    switch (code) {
        case ErrorCode::kInvalidArgument:
            return "invalid argument";
        case ErrorCode::kCancelled:
            return "cancelled";
        case ErrorCode::kNoSuchEntry:
            return "not in the archive";
        case ErrorCode::kOverLimit:
            return "over the limits that are set";
        case ErrorCode::kOpenFailed:
            return "cannot be opened";
        case ErrorCode::kReadFailed:
            return "cannot be read";
        case ErrorCode::kWriteFailed:
            return "cannot be written";
        case ErrorCode::kNoSpace:
            return "no space left";
        case ErrorCode::kAlreadyExists:
            return "already exists";
        case ErrorCode::kOutOfMemory:
            return "needs more memory than is allowed";
        case ErrorCode::kVolumeMissing:
            return "volume of the archive is missing";
        case ErrorCode::kNotAnArchive:
            return "not a ZIP archive";
        case ErrorCode::kTruncated:
            return "truncated";
        case ErrorCode::kDamagedDirectory:
            return "damaged central directory";
        case ErrorCode::kMultipleDisks:
            return "spans several disks";
        case ErrorCode::kTooLarge:
            return "larger unpacked than the free space";
        case ErrorCode::kUnsafeName:
            return "unsafe name";
        case ErrorCode::kNameTooLong:
            return "name too long";
        case ErrorCode::kConflictingNames:
            return "both a file and a folder";
        case ErrorCode::kUnsafeLink:
            return "symbolic link that leaves the destination";
        case ErrorCode::kEncrypted:
            return "encrypted, needs a password";
        case ErrorCode::kWrongPassword:
            return "wrong password";
        case ErrorCode::kUnsupportedMethod:
            return "unsupported compression method";
        case ErrorCode::kOverlap:
            return "overlaps another entry or the directory";
        case ErrorCode::kSizeMismatch:
            return "declared sizes are not true";
        case ErrorCode::kHeaderMismatch:
            return "headers disagree";
        case ErrorCode::kDamagedData:
            return "damaged data";
        case ErrorCode::kChecksumMismatch:
            return "wrong checksum";
        case ErrorCode::kSourceUnreadable:
            return "source cannot be read";
        case ErrorCode::kSourceNotSupported:
            return "source is neither a file nor a folder";
        case ErrorCode::kSourceChanged:
            return "source has changed, or is not as long as it claims";
    }
    return "unknown error";
}

namespace {

// Whether an error that names an entry is about one that stands in an archive: then 0 is the offset
// of the first.
bool concernsArchivedEntry(ErrorCode code) {
    return code >= ErrorCode::kNotAnArchive && code <= ErrorCode::kChecksumMismatch;
}

}  // namespace

std::string Error::describe() const {
    std::string line(archive::describe(code));
    if (!entry.empty()) {
        line += ": " + entry;
    }
    if (offset != 0 || (!entry.empty() && concernsArchivedEntry(code))) {
        line += " (at offset " + std::to_string(offset) + ")";
    }
    if (systemError != 0) {
        line += ": " + std::generic_category().message(systemError);
    }
    return line;
}

Error Error::about(std::string_view entryPath, std::uint64_t entryOffset) && {
    entry = entryPath;
    if (offset == 0) {
        offset = entryOffset;
    }
    return std::move(*this);
}

Failure systemFailure(ErrorCode otherwise, std::uint64_t offset) {
    const int number = errno;
    ErrorCode code = otherwise;
    if (number == ENOSPC || number == EDQUOT) {
        code = ErrorCode::kNoSpace;
    } else if (number == EEXIST) {
        code = ErrorCode::kAlreadyExists;
    } else if (number == ENOMEM) {
        code = ErrorCode::kOutOfMemory;
    }
    return Failure(Error{.code = code, .entry = {}, .offset = offset, .systemError = number});
}

}  // namespace pellumar::archive
