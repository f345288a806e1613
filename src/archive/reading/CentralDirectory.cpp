#include "archive/reading/CentralDirectory.h"

#include <sys/stat.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "archive/codecs/Decoder.h"
#include "archive/format/CentralDirectoryHeader.h"
#include "archive/format/EntryPath.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/NameDecoder.h"

namespace pellumar::archive {

namespace {

using namespace format;

// Holds the largest header there can be: fixed part and three fields of 65,535 bytes.
constexpr std::size_t kDirectoryWindow = 256UL * 1024;

constexpr std::uint32_t kDefaultFilePermissions = 0644;
constexpr std::uint32_t kDefaultFolderPermissions = 0755;
constexpr std::uint32_t kReadOnlyFilePermissions = 0444;
constexpr std::uint32_t kPermissionBits = 0777;
constexpr std::uint32_t kSetIdBits = 07000;
// In the lower half of the attributes, where 7-Zip and its kin say that the upper half is a mode
// although the host is MS-DOS or Windows.
constexpr std::uint32_t kUnixExtension = 0x8000;

using HeaderHandler = std::function<Result<>(const CentralDirectoryHeader&, std::uint64_t offset)>;

// Calls `handle` for each header of the directory in turn; its views lead into `window` and are
// valid during the call.
Result<> forEachHeader(const File& file,
                       const DirectoryLocation& location,
                       MutableBytes window,
                       const HeaderHandler& handle) {
    std::uint64_t windowOffset = 0;  // in the directory
    ByteView rest;                   // what of the window has not been handled
    const auto refill = [&]() -> Result<> {
        windowOffset += static_cast<std::uint64_t>(rest.data() - window.data());
        const MutableBytes target =
            window.first(std::min<std::uint64_t>(window.size(), location.size - windowOffset));
        rest = target;
        return file.readExactlyAt(location.offset + windowOffset, target);
    };
    rest = window.first(0);
    const auto holdsHeader = [&rest] {
        return rest.size() >= kCentralDirectoryHeaderSize &&
               rest.size() >= CentralDirectoryHeader::recordSize(rest);
    };
    for (std::uint64_t i = 0; i < location.entryCount; ++i) {
        if (!holdsHeader()) {
            if (auto filled = refill(); !filled) {
                return filled;
            }
        }
        const std::uint64_t offset = location.offset + windowOffset +
                                     static_cast<std::uint64_t>(rest.data() - window.data());
        auto header = CentralDirectoryHeader::parse(rest, offset);
        if (!header) {
            return passOn(header);
        }
        if (auto handled = handle(*header, offset); !handled) {
            return handled;
        }
        rest = rest.subspan(CentralDirectoryHeader::recordSize(rest));
    }
    // Bytes that belong to no header would be read differently by different tools.
    const std::uint64_t used =
        windowOffset + static_cast<std::uint64_t>(rest.data() - window.data());
    if (location.entryCount > 0 && used != location.size) {
        return failure(ErrorCode::kDamagedDirectory, location.offset + used);
    }
    return {};
}

RawName rawNameOf(const CentralDirectoryHeader& header) {
    return {
        .bytes = header.name, .utf8Flag = (header.flags & kFlagUtf8) != 0, .extra = header.extra};
}

std::string_view textOf(ByteView bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The Unix mode that the header holds, or 0 if it holds none.
std::uint32_t unixModeOf(const CentralDirectoryHeader& header) {
    const std::uint32_t mode = header.externalAttributes >> kUnixModeShift;
    const bool unixHost = header.host == kHostUnix || header.host == kHostDarwin;
    const bool extended = (header.externalAttributes & kUnixExtension) != 0 &&
                          (mode & static_cast<std::uint32_t>(S_IFMT)) != 0;
    return unixHost || extended ? mode : 0;
}

void setTypeAndPermissions(const CentralDirectoryHeader& header,
                           bool nameIsFolder,
                           EntryData& data) {
    const std::uint32_t mode = unixModeOf(header);
    const std::uint32_t type = mode & static_cast<std::uint32_t>(S_IFMT);
    const bool dosFolder = mode == 0 && (header.externalAttributes & kDosDirectory) != 0 &&
                           header.uncompressedSize == 0;
    Entry& entry = data.entry;
    if (nameIsFolder || type == S_IFDIR || dosFolder) {
        entry.type = EntryType::kFolder;
    } else if (type == S_IFLNK) {
        entry.type = EntryType::kSymbolicLink;
    } else {
        data.specialFile = type != 0 && type != S_IFREG;
    }
    if (mode != 0) {
        entry.permissions = mode & kPermissionBits;
        data.setIdBits = (mode & kSetIdBits) != 0;
    } else if (entry.type == EntryType::kFolder) {
        entry.permissions = kDefaultFolderPermissions;
    } else {
        entry.permissions = (header.externalAttributes & kDosReadOnly) != 0
                                ? kReadOnlyFilePermissions
                                : kDefaultFilePermissions;
    }
}

// What a single header shows to be impossible or not to be had.
std::optional<ErrorCode> refusalOf(const CentralDirectoryHeader& header, const Entry& entry) {
    if ((header.flags & (kFlagEncrypted | kFlagStrongEncryption | kFlagMaskedHeader)) != 0) {
        return ErrorCode::kEncrypted;
    }
    if (header.disk != 0) {
        return ErrorCode::kMultipleDisks;
    }
    if (!isSupportedMethod(header.method) || (header.flags & kFlagPatchData) != 0) {
        return ErrorCode::kUnsupportedMethod;
    }
    const bool folderWithData = entry.type == EntryType::kFolder && header.uncompressedSize != 0;
    const bool storedOtherwise =
        header.method == kMethodStored && header.compressedSize != header.uncompressedSize;
    if (folderWithData || storedOtherwise ||
        header.uncompressedSize > mostUncompressedSize(header.method, header.compressedSize)) {
        return ErrorCode::kSizeMismatch;
    }
    return std::nullopt;
}

// Turns the headers into the table.
class TableBuilder {
  public:
    TableBuilder(const DirectoryLocation& location,
                 const NameDecoder& names,
                 std::size_t entries,
                 std::size_t namesSize)
        : location_(location), names_(names) {
        table_.expect(entries, namesSize);
    }

    Result<> add(const CentralDirectoryHeader& header, std::uint64_t offset) {
        const DecodedName name = names_.decode(rawNameOf(header));
        auto path = judgeEntryName(name.text, pathStorage_);
        if (!path) {
            return Failure(std::move(path.error()).about(name.text, offset));
        }
        EntryData data;
        setTypeAndPermissions(header, path->isFolder, data);
        if (const auto reason = refusalOf(header, data.entry)) {
            return Failure(Error{.code = *reason, .entry = name.text, .offset = offset});
        }
        if (path->path.empty()) {
            return {};
        }
        if (header.localHeaderOffset > location_.offset - location_.archiveStart) {
            return Failure(
                Error{.code = ErrorCode::kDamagedDirectory, .entry = name.text, .offset = offset});
        }
        keepNames(header, path->path, data);
        data.flags = header.flags;
        data.legacyName = name.legacy;
        data.entry.method = header.method;
        data.entry.crc32 = header.crc32;
        data.entry.compressedSize = header.compressedSize;
        data.entry.uncompressedSize = header.uncompressedSize;
        data.entry.localHeaderOffset = location_.archiveStart + header.localHeaderOffset;
        const auto exact = modificationTimeIn(header.extra);
        data.entry.modified = exact ? *exact : fromDosDateTime(header.modified);
        table_.add(data);
        return {};
    }

    EntryTable take() { return std::move(table_); }

  private:
    // Keeps the name once where the path is a part of it, which it nearly always is.
    void keepNames(const CentralDirectoryHeader& header, std::string_view path, EntryData& data) {
        data.rawName = table_.keep(textOf(header.name));
        const std::size_t at = data.rawName.find(path);
        data.entry.path =
            at == std::string_view::npos ? table_.keep(path) : data.rawName.substr(at, path.size());
    }

    const DirectoryLocation& location_;
    const NameDecoder& names_;
    EntryTable table_;
    std::string pathStorage_;
};

// Gives every entry the end of its slot and refuses those whose data cannot be within it. The local
// header's extra fields are not known yet, so this is what the directory shows; the rest is checked
// against the slot when that is read.
Result<> assignSlots(EntryTable& table, std::uint64_t directoryOffset) {
    std::vector<std::size_t> order(table.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto before = [&table](std::size_t a, std::size_t b) {
        return table[a].entry.localHeaderOffset < table[b].entry.localHeaderOffset;
    };
    if (!std::is_sorted(order.begin(), order.end(), before)) {
        std::stable_sort(order.begin(), order.end(), before);
    }
    std::uint64_t slotEnd = directoryOffset;
    for (std::size_t i = order.size(); i-- > 0;) {
        EntryData& data = table[order[i]];
        const Entry& entry = data.entry;
        const std::uint64_t slot = slotEnd - entry.localHeaderOffset;
        const std::uint64_t header = kLocalFileHeaderSize + data.rawName.size();
        if (slot < header || slot - header < entry.compressedSize) {
            return Failure(Error{.code = ErrorCode::kOverlap,
                                 .entry = std::string(entry.path),
                                 .offset = entry.localHeaderOffset});
        }
        data.slotEnd = slotEnd;
        slotEnd = entry.localHeaderOffset;
    }
    return {};
}

}  // namespace

Result<EntryTable> readCentralDirectory(const File& file,
                                        const DirectoryLocation& location,
                                        Warnings& warnings) {
    const auto size =
        static_cast<std::size_t>(std::min<std::uint64_t>(kDirectoryWindow, location.size));
    const auto storage = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    const MutableBytes window(storage.get(), size);
    NameDecoder names;
    std::size_t namesSize = 0;
    auto considered = forEachHeader(
        file,
        location,
        window,
        [&names, &namesSize](const CentralDirectoryHeader& header, std::uint64_t) -> Result<> {
            names.consider(rawNameOf(header));
            namesSize += header.name.size();
            return {};
        });
    if (!considered) {
        return passOn(considered);
    }
    names.decide();

    // All headers are there, so this is no mere claim.
    TableBuilder builder(location, names, static_cast<std::size_t>(location.entryCount), namesSize);
    auto built =
        forEachHeader(file,
                      location,
                      window,
                      [&builder](const CentralDirectoryHeader& header, std::uint64_t offset) {
                          return builder.add(header, offset);
                      });
    if (!built) {
        return passOn(built);
    }
    EntryTable table = builder.take();
    if (auto assigned = assignSlots(table, location.offset); !assigned) {
        return passOn(assigned);
    }
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].legacyName) {
            warnings.add(
                WarningCode::kLegacyCharset, table[i].entry.path, table[i].entry.localHeaderOffset);
        }
    }
    return table;
}

}  // namespace pellumar::archive
