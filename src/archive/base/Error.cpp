#include "archive/base/Error.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace pellumar::archive {

namespace {

// In the order of the codes.
constexpr std::array<std::string_view, 32> kDescriptions = {
    "invalid argument",
    "cancelled",
    "not in the archive",
    "over the limits that are set",
    "cannot be opened",
    "cannot be read",
    "cannot be written",
    "no space left",
    "already exists",
    "needs more memory than is allowed",
    "volume of the archive is missing",
    "not a ZIP archive",
    "truncated",
    "damaged central directory",
    "spans several disks",
    "larger unpacked than the free space",
    "unsafe name",
    "name too long",
    "both a file and a folder",
    "symbolic link that leaves the destination",
    "encrypted, needs a password",
    "wrong password",
    "encrypted, and encryption support (libnettle) is not installed",
    "unsupported compression method",
    "overlaps another entry or the directory",
    "declared sizes are not true",
    "headers disagree",
    "damaged data",
    "wrong checksum",
    "source cannot be read",
    "source is neither a file nor a folder",
    "source has changed, or is not as long as it claims",
};
static_assert(kDescriptions.size() == static_cast<std::size_t>(ErrorCode::kSourceChanged) + 1);

}  // namespace

std::string_view describe(ErrorCode code) {
    const auto index = static_cast<std::size_t>(code);
    return index < kDescriptions.size() ? kDescriptions[index] : "unknown error";
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
