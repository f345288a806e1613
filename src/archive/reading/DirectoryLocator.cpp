#include "archive/reading/DirectoryLocator.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "archive/format/EndOfCentralDirectory.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/SignatureSearch.h"

namespace pellumar::archive {

namespace {

using namespace format;

// A ZIP64 end of central directory record, found through its locator.
struct Zip64End {
    EndFields fields;
    std::uint64_t position = 0;
    std::uint64_t end = 0;  // by its own size
    std::uint64_t claimedPosition = 0;
};

// Whether each 16 or 32 bit field is masked or says the same as its 64 bit one.
bool agree(const EndFields& small, const EndFields& large) {
    const auto same = [](std::uint64_t a, std::uint64_t mask, std::uint64_t b) {
        return a == mask || a == b;
    };
    return same(small.disk, kMax16, large.disk) &&
           same(small.directoryDisk, kMax16, large.directoryDisk) &&
           same(small.entriesOnDisk, kMax16, large.entriesOnDisk) &&
           same(small.entries, kMax16, large.entries) &&
           same(small.directorySize, kMax32, large.directorySize) &&
           same(small.directoryOffset, kMax32, large.directoryOffset);
}

// Whether something in the record can only be known from a ZIP64 one.
bool needsZip64(const EndFields& small) {
    return small.disk == kMax16 || small.directoryDisk == kMax16 || small.entriesOnDisk == kMax16 ||
           small.entries == kMax16 || small.directorySize == kMax32 ||
           small.directoryOffset == kMax32;
}

// The place in the whole of an offset in a volume; nothing if there is no such volume. In an
// archive of one piece every number is taken for its own.
std::optional<std::uint64_t> inWhole(const ByteSource& file,
                                     std::uint64_t volume,
                                     std::uint64_t offset) {
    const auto starts = file.volumeStarts();
    if (starts.empty()) {
        return offset;
    }
    if (volume >= starts.size() || offset > file.size() - starts[volume]) {
        return std::nullopt;
    }
    return starts[volume] + offset;
}

// The ZIP64 record at `position`, if there is one. Some readers believe it whatever its own size
// says, so that is not asked here.
Result<std::optional<Zip64End>> zip64EndAt(const ByteSource& file, std::uint64_t position) {
    std::array<std::uint8_t, kZip64EndOfCentralDirectorySize> record{};
    if (auto read = file.readExactlyAt(position, record); !read) {
        return passOn(read);
    }
    if (loadLittleEndian<std::uint32_t>(record) != kZip64EndOfCentralDirectorySignature) {
        return std::nullopt;
    }
    return Zip64End{.fields = parseZip64EndOfCentralDirectory(record),
                    .position = position,
                    .end = endOfZip64Record(record, position)};
}

// The ZIP64 record that the locator at `locatorPosition` leads to, or nothing if there is none. The
// locator's offset falls short by what stands before the archive, so the record is also looked for
// directly before the locator, where writers put it. Readers take the one or the other: if there
// are two, they have to say the same.
Result<std::optional<Zip64End>> followLocator(const ByteSource& file,
                                              const Zip64Locator& locator,
                                              std::uint64_t locatorPosition) {
    const auto place = inWhole(file, locator.recordDisk, locator.recordOffset);
    if (!place) {
        return failure(ErrorCode::kMultipleDisks, locatorPosition);
    }
    const std::uint64_t claimed = *place;
    if (locatorPosition < kZip64EndOfCentralDirectorySize ||
        claimed > locatorPosition - kZip64EndOfCentralDirectorySize) {
        return std::nullopt;
    }
    const std::uint64_t before = locatorPosition - kZip64EndOfCentralDirectorySize;
    std::optional<Zip64End> end;
    for (const std::uint64_t position : {claimed, before}) {
        auto found = zip64EndAt(file, position);
        if (!found) {
            return passOn(found);
        }
        if (!*found) {
            continue;
        }
        if (end && end->fields != (*found)->fields) {
            return failure(ErrorCode::kDamagedDirectory, position);
        }
        if (!end) {
            end = *found;
            end->claimedPosition = claimed;
        }
    }
    if (end && end->end != locatorPosition) {
        return failure(ErrorCode::kDamagedDirectory, end->position);
    }
    return end;
}

// The ZIP64 record of the archive whose end record stands at `endPosition`, or nothing if it has
// none. The locator's signature can stand there by chance, at the end of a name or comment: it is
// no locator where the record it names is not there and nothing is needed of it.
Result<std::optional<Zip64End>> findZip64End(const ByteSource& file,
                                             std::uint64_t endPosition,
                                             const EndFields& small) {
    if (endPosition < kZip64LocatorSize) {
        return std::nullopt;
    }
    const std::uint64_t locatorPosition = endPosition - kZip64LocatorSize;
    std::array<std::uint8_t, kZip64LocatorSize> record{};
    if (auto read = file.readExactlyAt(locatorPosition, record); !read) {
        return passOn(read);
    }
    if (loadLittleEndian<std::uint32_t>(record) != kZip64LocatorSignature) {
        return std::nullopt;
    }
    const Zip64Locator locator = parseZip64Locator(record);
    auto end = followLocator(file, locator, locatorPosition);
    const bool severalDisks =
        file.volumeStarts().empty() && (locator.recordDisk != 0 || locator.disks > 1);
    if (severalDisks && ((end && *end) || needsZip64(small))) {
        return failure(ErrorCode::kMultipleDisks, locatorPosition);
    }
    if (end && !*end && needsZip64(small)) {
        return failure(ErrorCode::kDamagedDirectory, locatorPosition);
    }
    return end;
}

Result<bool> holdsSignature(const ByteSource& file, std::uint64_t offset, std::uint32_t signature) {
    std::array<std::uint8_t, sizeof(std::uint32_t)> bytes{};
    if (auto read = file.readExactlyAt(offset, bytes); !read) {
        return passOn(read);
    }
    return loadLittleEndian<std::uint32_t>(bytes) == signature;
}

// What a value that has no room in its field is cut by, by writers that know no ZIP64.
constexpr std::uint64_t kModulo16 = std::uint64_t{kMax16} + 1;
constexpr std::uint64_t kModulo32 = std::uint64_t{kMax32} + 1;

// The directory of an archive that is over 4 GiB and has no ZIP64 record: its place is known by the
// end record, and its claimed offset is what is left of the true one. Nothing if that is not so.
Result<std::optional<DirectoryLocation>> findBeyond32Bits(const ByteSource& file,
                                                          std::uint64_t position,
                                                          const EndFields& fields) {
    if (fields.directorySize > position) {
        return std::nullopt;
    }
    const std::uint64_t offset = position - fields.directorySize;
    if (offset < kModulo32 || offset % kModulo32 != fields.directoryOffset) {
        return std::nullopt;
    }
    // So it would be as well if as many bytes stood before the archive.
    auto beginsFile = holdsSignature(file, 0, kLocalFileHeaderSignature);
    if (!beginsFile) {
        return passOn(beginsFile);
    }
    auto beginsDirectory = holdsSignature(file, offset, kCentralDirectoryHeaderSignature);
    if (!beginsDirectory) {
        return passOn(beginsDirectory);
    }
    if (!*beginsFile || !*beginsDirectory) {
        return std::nullopt;
    }
    return DirectoryLocation{.offset = offset,
                             .size = fields.directorySize,
                             .entryCount = fields.entries,
                             .countModulo = kModulo16,
                             .archiveStart = 0,
                             .bytesAfter = 0,
                             .zip64 = false,
                             .cutTo32Bits = true};
}

// Whether so many bytes can hold so many entries.
bool canHold(const EndFields& fields) {
    return fields.entries <= fields.directorySize / kCentralDirectoryHeaderSize &&
           fields.entries <= fields.directoryOffset / kLocalFileHeaderSize;
}

// Takes the record's fields for what they say.
Result<DirectoryLocation> followExactly(const ByteSource& file,
                                        std::uint64_t position,
                                        const EndFields& fields,
                                        const std::optional<Zip64End>& zip64) {
    const std::uint64_t directoryEnd = zip64 ? zip64->position : position;
    if (fields.directorySize > directoryEnd ||
        fields.directoryOffset > directoryEnd - fields.directorySize || !canHold(fields)) {
        return failure(ErrorCode::kDamagedDirectory, position);
    }
    const std::uint64_t offset = directoryEnd - fields.directorySize;
    const std::uint64_t archiveStart = offset - fields.directoryOffset;
    if (zip64 && zip64->position - zip64->claimedPosition != archiveStart) {
        return failure(ErrorCode::kDamagedDirectory, zip64->position);
    }
    // An empty one has no header to begin with.
    if (fields.directorySize > 0) {
        auto begins = holdsSignature(file, offset, kCentralDirectoryHeaderSignature);
        if (!begins) {
            return passOn(begins);
        }
        if (!*begins) {
            return failure(ErrorCode::kDamagedDirectory, offset);
        }
    }
    return DirectoryLocation{.offset = offset,
                             .size = fields.directorySize,
                             .entryCount = fields.entries,
                             .countModulo = zip64 ? 0 : kModulo16,
                             .archiveStart = archiveStart,
                             .bytesAfter = 0,
                             .zip64 = zip64.has_value(),
                             .cutTo32Bits = false};
}

// Follows the record at `position` to its directory.
Result<DirectoryLocation> follow(const ByteSource& file, std::uint64_t position, ByteView record) {
    EndFields fields = parseEndOfCentralDirectory(record);
    auto zip64 = findZip64End(file, position, fields);
    if (!zip64) {
        return passOn(zip64);
    }
    if (*zip64) {
        if (!agree(fields, (*zip64)->fields)) {
            return failure(ErrorCode::kDamagedDirectory, (*zip64)->position);
        }
        fields = (*zip64)->fields;
    }
    const std::size_t volumes = file.volumeStarts().size();
    if (volumes == 0) {
        if (fields.disk != 0 || fields.directoryDisk != 0 ||
            fields.entriesOnDisk != fields.entries) {
            return failure(ErrorCode::kMultipleDisks, position);
        }
    } else {
        const auto directory = inWhole(file, fields.directoryDisk, fields.directoryOffset);
        if (fields.disk + 1 != volumes || !directory) {
            return failure(ErrorCode::kMultipleDisks, position);
        }
        fields.directoryOffset = *directory;
    }
    if (!*zip64 && volumes == 0) {
        auto beyond = findBeyond32Bits(file, position, fields);
        if (!beyond) {
            return passOn(beyond);
        }
        if (*beyond) {
            return **beyond;
        }
    }
    return followExactly(file, position, fields, *zip64);
}

// The part of the file that can hold the record.
struct Tail {
    std::vector<std::uint8_t> bytes;
    std::uint64_t position = 0;
};

Result<Tail> readTail(const ByteSource& file) {
    const std::uint64_t fileSize = file.size();
    const std::uint64_t size =
        std::min<std::uint64_t>(fileSize, kEndOfCentralDirectorySize + kMax16);
    Tail tail{.bytes = std::vector<std::uint8_t>(size), .position = fileSize - size};
    if (auto read = file.readExactlyAt(tail.position, tail.bytes); !read) {
        return passOn(read);
    }
    return tail;
}

bool beginsWithLocalHeader(const ByteSource& file, std::uint64_t offset) {
    const auto begins = holdsSignature(file, offset, kLocalFileHeaderSignature);
    return begins && *begins;
}

// Takes the candidates from the end of the file to the front and remembers what became of them.
class CandidateSearch {
  public:
    explicit CandidateSearch(const ByteSource& file) : file_(file) {}

    void consider(std::uint64_t position, ByteView record, std::uint64_t bytesAfter) {
        auto location = follow(file_, position, record);
        if (!location) {
            if (!error_) {
                error_ = location.error();
            }
            return;
        }
        location->bytesAfter = bytesAfter;
        location->commentOffset = position + kEndOfCentralDirectorySize;
        location->commentSize = commentSizeOf(record);
        if (bytesAfter > 0) {
            if (!withBytesAfter_ && hasNoArchiveBefore(*location)) {
                withBytesAfter_ = *location;
            }
        } else if (exact_) {
            error_ = failure(ErrorCode::kDamagedDirectory, position).value();
            ambiguous_ = true;
        } else {
            exact_ = *location;
        }
    }

    [[nodiscard]] Result<DirectoryLocation> verdict() const {
        if (exact_ && !ambiguous_) {
            return *exact_;
        }
        if (!exact_ && withBytesAfter_) {
            return *withBytesAfter_;
        }
        if (error_) {
            return Failure(*error_);
        }
        return failure(beginsWithLocalHeader(file_, 0) ? ErrorCode::kTruncated
                                                       : ErrorCode::kNotAnArchive);
    }

  private:
    // Whether what stands before the archive at `location` is no archive of its own. The end of one
    // that is cut off within a stored archive looks like bytes before and behind that.
    [[nodiscard]] bool hasNoArchiveBefore(const DirectoryLocation& location) {
        return location.archiveStart == 0 || (beginsWithLocalHeader(file_, location.archiveStart) &&
                                              !mayHoldHeaderBefore(location.archiveStart));
    }

    // Looks at each byte of the file once, however many candidates there are.
    [[nodiscard]] bool mayHoldHeaderBefore(std::uint64_t end) {
        constexpr std::uint64_t kSignatureSize = sizeof(kLocalFileHeaderSignature);
        if (!firstHeader_ && searchedUntil_ < end) {
            const auto found = findSignature(file_, kLocalFileHeaderSignature, searchedUntil_, end);
            if (!found) {
                return true;
            }
            firstHeader_ = *found;
            // One may lie across this end.
            searchedUntil_ = end - std::min(end, kSignatureSize - 1);
        }
        return firstHeader_ && *firstHeader_ + kSignatureSize <= end;
    }

    const ByteSource& file_;
    std::optional<std::uint64_t> firstHeader_;  // of the file, if one has been found
    std::uint64_t searchedUntil_ = 0;           // and no other before here
    std::optional<DirectoryLocation> exact_;
    std::optional<DirectoryLocation> withBytesAfter_;
    std::optional<Error> error_;
    bool ambiguous_ = false;
};

}  // namespace

std::size_t claimedVolumes(const ByteSource& file) {
    const auto tail = readTail(file);
    if (!tail) {
        return 0;
    }
    const ByteView bytes = tail->bytes;
    for (std::size_t end = bytes.size(); end >= kEndOfCentralDirectorySize; --end) {
        const ByteView record =
            bytes.subspan(end - kEndOfCentralDirectorySize, kEndOfCentralDirectorySize);
        if (loadLittleEndian<std::uint32_t>(record) == kEndOfCentralDirectorySignature &&
            commentSizeOf(record) == bytes.size() - end) {
            return static_cast<std::size_t>(parseEndOfCentralDirectory(record).disk + 1);
        }
    }
    return 0;
}

Result<DirectoryLocation> locateDirectory(const ByteSource& file) {
    auto tail = readTail(file);
    if (!tail) {
        return passOn(tail);
    }
    CandidateSearch search(file);
    const ByteView bytes = tail->bytes;
    for (std::size_t end = bytes.size(); end >= kEndOfCentralDirectorySize; --end) {
        const std::size_t at = end - kEndOfCentralDirectorySize;
        if (loadLittleEndian<std::uint32_t>(bytes, at) != kEndOfCentralDirectorySignature) {
            continue;
        }
        const ByteView record = bytes.subspan(at, kEndOfCentralDirectorySize);
        const std::size_t commentSize = commentSizeOf(record);
        if (commentSize <= bytes.size() - end) {
            search.consider(tail->position + at, record, bytes.size() - end - commentSize);
        }
    }
    return search.verdict();
}

}  // namespace pellumar::archive
