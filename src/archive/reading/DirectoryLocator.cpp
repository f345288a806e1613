#include "archive/reading/DirectoryLocator.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

using namespace format;

// The fields of the end of central directory record that say where the directory is (4.3.16), or
// those of the ZIP64 record (4.3.14).
struct EndFields {
    std::uint64_t disk = 0;
    std::uint64_t directoryDisk = 0;
    std::uint64_t entriesOnDisk = 0;
    std::uint64_t entries = 0;
    std::uint64_t directorySize = 0;
    std::uint64_t directoryOffset = 0;
};

// A ZIP64 end of central directory record, found through its locator.
struct Zip64End {
    EndFields fields;
    std::uint64_t position = 0;
    std::uint64_t claimedPosition = 0;
};

EndFields parseEnd(ByteView record) {
    return {.disk = loadLittleEndian<std::uint16_t>(record, 4),
            .directoryDisk = loadLittleEndian<std::uint16_t>(record, 6),
            .entriesOnDisk = loadLittleEndian<std::uint16_t>(record, 8),
            .entries = loadLittleEndian<std::uint16_t>(record, 10),
            .directorySize = loadLittleEndian<std::uint32_t>(record, 12),
            .directoryOffset = loadLittleEndian<std::uint32_t>(record, 16)};
}

EndFields parseZip64End(ByteView record) {
    return {.disk = loadLittleEndian<std::uint32_t>(record, 16),
            .directoryDisk = loadLittleEndian<std::uint32_t>(record, 20),
            .entriesOnDisk = loadLittleEndian<std::uint64_t>(record, 24),
            .entries = loadLittleEndian<std::uint64_t>(record, 32),
            .directorySize = loadLittleEndian<std::uint64_t>(record, 40),
            .directoryOffset = loadLittleEndian<std::uint64_t>(record, 48)};
}

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

// The ZIP64 record that ends at `locatorPosition` and that the locator there points to, or nothing
// if there is no locator. The locator's offset falls short by what stands before the archive, so
// the record is also looked for directly before the locator, where writers put it.
Result<std::optional<Zip64End>> findZip64End(const File& file, std::uint64_t endPosition) {
    if (endPosition < kZip64LocatorSize) {
        return std::nullopt;
    }
    const std::uint64_t locatorPosition = endPosition - kZip64LocatorSize;
    std::array<std::uint8_t, kZip64LocatorSize> locator{};
    if (auto read = file.readExactlyAt(locatorPosition, locator); !read) {
        return passOn(read);
    }
    if (loadLittleEndian<std::uint32_t>(locator) != kZip64LocatorSignature) {
        return std::nullopt;
    }
    if (loadLittleEndian<std::uint32_t>(locator, 4) != 0 ||
        loadLittleEndian<std::uint32_t>(locator, 16) > 1) {
        return failure(ErrorCode::kMultipleDisks, locatorPosition);
    }
    const auto claimed = loadLittleEndian<std::uint64_t>(locator, 8);
    if (locatorPosition < kZip64EndOfCentralDirectorySize ||
        claimed > locatorPosition - kZip64EndOfCentralDirectorySize) {
        return failure(ErrorCode::kDamagedDirectory, locatorPosition);
    }
    for (const std::uint64_t position :
         {claimed, locatorPosition - kZip64EndOfCentralDirectorySize}) {
        std::array<std::uint8_t, kZip64EndOfCentralDirectorySize> record{};
        if (auto read = file.readExactlyAt(position, record); !read) {
            return passOn(read);
        }
        // The size field leaves out itself and the signature (4.3.14.1).
        const auto size = loadLittleEndian<std::uint64_t>(record, 4);
        if (loadLittleEndian<std::uint32_t>(record) == kZip64EndOfCentralDirectorySignature &&
            size == locatorPosition - position - 12) {
            return Zip64End{
                .fields = parseZip64End(record), .position = position, .claimedPosition = claimed};
        }
    }
    return failure(ErrorCode::kDamagedDirectory, locatorPosition);
}

// Whether the directory begins with a header, or is empty and meant to be.
Result<bool> beginsDirectory(const File& file, std::uint64_t offset, const EndFields& fields) {
    if (fields.entries == 0) {
        return fields.directorySize == 0;
    }
    std::array<std::uint8_t, sizeof(std::uint32_t)> signature{};
    if (auto read = file.readExactlyAt(offset, signature); !read) {
        return passOn(read);
    }
    return loadLittleEndian<std::uint32_t>(signature) == kCentralDirectoryHeaderSignature;
}

// Follows the record at `position` to its directory.
Result<DirectoryLocation> follow(const File& file, std::uint64_t position, ByteView record) {
    EndFields fields = parseEnd(record);
    auto zip64 = findZip64End(file, position);
    if (!zip64) {
        return passOn(zip64);
    }
    std::uint64_t directoryEnd = position;
    if (*zip64) {
        if (!agree(fields, (*zip64)->fields)) {
            return failure(ErrorCode::kDamagedDirectory, (*zip64)->position);
        }
        fields = (*zip64)->fields;
        directoryEnd = (*zip64)->position;
    }
    if (fields.disk != 0 || fields.directoryDisk != 0 || fields.entriesOnDisk != fields.entries) {
        return failure(ErrorCode::kMultipleDisks, position);
    }
    if (fields.directorySize > directoryEnd ||
        fields.directoryOffset > directoryEnd - fields.directorySize ||
        fields.entries > fields.directorySize / kCentralDirectoryHeaderSize ||
        fields.entries > fields.directoryOffset / kLocalFileHeaderSize) {
        return failure(ErrorCode::kDamagedDirectory, position);
    }
    const std::uint64_t offset = directoryEnd - fields.directorySize;
    const std::uint64_t archiveStart = offset - fields.directoryOffset;
    if (*zip64 && (*zip64)->position - (*zip64)->claimedPosition != archiveStart) {
        return failure(ErrorCode::kDamagedDirectory, (*zip64)->position);
    }
    auto begins = beginsDirectory(file, offset, fields);
    if (!begins) {
        return passOn(begins);
    }
    if (!*begins) {
        return failure(ErrorCode::kDamagedDirectory, offset);
    }
    return DirectoryLocation{.offset = offset,
                             .size = fields.directorySize,
                             .entryCount = fields.entries,
                             .archiveStart = archiveStart,
                             .bytesAfter = 0};
}

// The part of the file that can hold the record.
struct Tail {
    std::vector<std::uint8_t> bytes;
    std::uint64_t position = 0;
};

Result<Tail> readTail(const File& file) {
    auto status = file.status();
    if (!status) {
        return passOn(status);
    }
    const auto fileSize = static_cast<std::uint64_t>(status->st_size);
    const std::uint64_t size =
        std::min<std::uint64_t>(fileSize, kEndOfCentralDirectorySize + kMax16);
    Tail tail{.bytes = std::vector<std::uint8_t>(size), .position = fileSize - size};
    if (auto read = file.readExactlyAt(tail.position, tail.bytes); !read) {
        return passOn(read);
    }
    return tail;
}

bool beginsWithLocalHeader(const File& file) {
    std::array<std::uint8_t, sizeof(std::uint32_t)> signature{};
    return file.readExactlyAt(0, signature) &&
           loadLittleEndian<std::uint32_t>(signature) == kLocalFileHeaderSignature;
}

// Takes the candidates from the end of the file to the front and remembers what became of them.
class CandidateSearch {
  public:
    explicit CandidateSearch(const File& file) : file_(file) {}

    void consider(std::uint64_t position, ByteView record, std::uint64_t bytesAfter) {
        auto location = follow(file_, position, record);
        if (!location) {
            if (!error_) {
                error_ = location.error();
            }
            return;
        }
        location->bytesAfter = bytesAfter;
        if (bytesAfter > 0) {
            if (!withBytesAfter_ && location->archiveStart == 0) {
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
        return failure(beginsWithLocalHeader(file_) ? ErrorCode::kTruncated
                                                    : ErrorCode::kNotAnArchive);
    }

  private:
    const File& file_;
    std::optional<DirectoryLocation> exact_;
    std::optional<DirectoryLocation> withBytesAfter_;
    std::optional<Error> error_;
    bool ambiguous_ = false;
};

}  // namespace

Result<DirectoryLocation> locateDirectory(const File& file) {
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
        const std::size_t commentSize = loadLittleEndian<std::uint16_t>(bytes, at + 20);
        if (commentSize <= bytes.size() - end) {
            search.consider(tail->position + at,
                            bytes.subspan(at, kEndOfCentralDirectorySize),
                            bytes.size() - end - commentSize);
        }
    }
    return search.verdict();
}

}  // namespace pellumar::archive
