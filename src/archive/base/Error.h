#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <utility>

// The one error type of the library. No operation throws for what it meets in an archive, a file or
// the machine; what can fail returns a Result.
namespace pellumar::archive {

enum class ErrorCode : std::uint8_t {
    // The call itself.
    kInvalidArgument,  // an argument outside its documented range; nothing was done
    kCancelled,        // by the caller
    kNoSuchEntry,
    kOverLimit,  // the archive would cost more than the caller allows

    // The machine. `systemError` of the Error holds errno.
    kOpenFailed,
    kReadFailed,
    kWriteFailed,
    kNoSpace,
    kAlreadyExists,
    kOutOfMemory,
    kVolumeMissing,  // of a split archive; `entry` is its file's name

    // The archive as a whole: refused before anything is written.
    kNotAnArchive,      // no end of central directory record
    kTruncated,         // a record or an entry's data reaches past the end of the file
    kDamagedDirectory,  // records that contradict themselves or each other
    kMultipleDisks,
    kTooLarge,  // unpacked it would not fit into the free space

    // One entry, by its place in the central directory: refused before anything is written.
    kUnsafeName,  // "..", absolute, a drive letter, NUL, empty
    kNameTooLong,
    kConflictingNames,  // a file that is a folder as well
    kUnsafeLink,        // a symbolic link that leaves the destination
    kEncrypted,         // and no password was given, or it is a way that cannot be read
    kWrongPassword,
    kEncryptionNotInstalled,  // no password would help: the machine lacks the library for AES
    kUnsupportedMethod,
    kOverlap,
    kSizeMismatch,  // declared sizes that cannot be true, or were not

    // One entry, by what its local header and data show.
    kHeaderMismatch,  // local header or data descriptor disagree with the central directory
    kDamagedData,
    kChecksumMismatch,

    // A file on its way into an archive.
    kSourceUnreadable,
    kSourceNotSupported,  // a FIFO, a socket, a device
    kSourceChanged,       // it is not what it was, or not as long as the system says
};

struct Error {
    ErrorCode code = ErrorCode::kInvalidArgument;
    // The entry's path where the error concerns one, else empty.
    std::string entry;
    // Where in the archive: the offset in bytes from the start of the file of the record or data
    // that is wrong; 0 where the error is not about a place in an archive.
    std::uint64_t offset = 0;
    // errno where the system gave one, else 0.
    int systemError = 0;
    // kTooLarge: the room that the disk would have to have, and what is free; 0 and 0 where it is
    // not bytes that are short.
    std::uint64_t bytesNeeded = 0;
    std::uint64_t bytesFree = 0;

    // Whether room on the disk is what was missing.
    [[nodiscard]] bool isShortOfRoom() const {
        return code == ErrorCode::kNoSpace || code == ErrorCode::kTooLarge;
    }

    // One line for a log or a terminal: reason, entry, offset and system error where present.
    [[nodiscard]] std::string describe() const;

    // The same error, told of an entry: fills `entry`, and `offset` if it has none yet.
    [[nodiscard]] Error about(std::string_view entryPath, std::uint64_t entryOffset) &&;
};

// A short English phrase, without a full stop. Total: every value has one.
[[nodiscard]] std::string_view describe(ErrorCode code);

template <typename T = void>
using Result = tl::expected<T, Error>;

using Failure = tl::unexpected<Error>;

[[nodiscard]] inline Failure failure(ErrorCode code, std::uint64_t offset = 0) {
    return Failure(Error{.code = code, .entry = {}, .offset = offset, .systemError = 0});
}

// An error of the machine with errno as it stands; ENOSPC, EDQUOT, EEXIST and ENOMEM choose their
// own code, all else becomes `otherwise`.
[[nodiscard]] Failure systemFailure(ErrorCode otherwise, std::uint64_t offset = 0);

// The error of `result`, to be returned from a function with another value type.
template <typename T>
[[nodiscard]] Failure passOn(Result<T>& result) {
    return Failure(std::move(result.error()));
}

}  // namespace pellumar::archive
