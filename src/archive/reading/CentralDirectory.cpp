#include "archive/reading/CentralDirectory.h"

#include <linux/limits.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "archive/codecs/Decoder.h"
#include "archive/format/CentralDirectoryHeader.h"
#include "archive/format/EntryPath.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/NameDecoder.h"
#include "archive/reading/SignatureSearch.h"

namespace pellumar::archive {

namespace {

using namespace format;

// Holds the largest header there can be: fixed part and three fields of 65,535 bytes.
constexpr std::size_t kDirectoryWindow = 256UL * 1024;

// What the offsets and sizes of a header without ZIP64 field leave off a larger value.
constexpr std::uint64_t k32Bits = std::uint64_t{kMax32} + 1;

constexpr std::uint32_t kDefaultFilePermissions = 0644;
constexpr std::uint32_t kDefaultFolderPermissions = 0755;
constexpr std::uint32_t kReadOnlyFilePermissions = 0444;
constexpr std::uint32_t kPermissionBits = 0777;
constexpr std::uint32_t kSetIdBits = 07000;
// In the lower half of the attributes, where 7-Zip and its kin say that the upper half is a mode
// although the host is MS-DOS or Windows.
constexpr std::uint32_t kUnixExtension = 0x8000;

// Calls `handle` for each header of the directory in turn, with its offset, until that fails; the
// header's views lead into `window` and are valid during the call. Bytes that belong to no header
// would be read differently by different tools, so all of the directory has to be headers.
template <typename Handle>
Result<> forEachHeader(const ByteSource& file,
                       const DirectoryLocation& location,
                       MutableBytes window,
                       Handle handle) {
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
    for (std::uint64_t used = 0; used < location.size;) {
        if (!holdsHeader()) {
            if (auto filled = refill(); !filled) {
                return filled;
            }
        }
        const std::uint64_t offset = location.offset + used;
        auto header = CentralDirectoryHeader::parse(rest, offset);
        if (!header) {
            return passOn(header);
        }
        if (auto handled = handle(*header, offset); !handled) {
            return handled;
        }
        const std::size_t size = CentralDirectoryHeader::recordSize(rest);
        rest = rest.subspan(size);
        used += size;
    }
    return {};
}

// Whether the directory holds as many headers as the archive says, as far as its field can say it.
bool isClaimed(std::uint64_t headers, const DirectoryLocation& location) {
    return (location.countModulo == 0 ? headers : headers % location.countModulo) ==
           location.entryCount;
}

RawName rawNameOf(const CentralDirectoryHeader& header) {
    return {
        .bytes = header.name, .utf8Flag = (header.flags & kFlagUtf8) != 0, .extra = header.extra};
}

// No path of a file can be as long, so nobody has to find out what is meant.
bool isTooLong(const RawName& name) {
    if (name.bytes.size() >= PATH_MAX) {
        return true;
    }
    // A field that says it otherwise has to be as long itself.
    const auto said =
        name.extra.size() < PATH_MAX ? std::optional<std::string_view>() : saidLetters(name);
    return said && said->size() >= PATH_MAX;
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

// What the header says of encryption, or nothing if it is a way that cannot be read. Puts the true
// method in its place.
std::optional<Encryption> encryptionOf(CentralDirectoryHeader& header) {
    if ((header.flags & (kFlagStrongEncryption | kFlagMaskedHeader)) != 0) {
        return std::nullopt;
    }
    if ((header.flags & kFlagEncrypted) == 0) {
        return Encryption();
    }
    if (header.method != kMethodAes) {
        const auto check = static_cast<std::uint8_t>(header.crc32 >> 24U);
        const bool described = (header.flags & kFlagDataDescriptor) != 0;
        return Encryption{.kind = Encryption::Kind::kTraditional,
                          .check = check,
                          .otherCheck = described
                                            ? static_cast<std::uint8_t>(header.modified.time >> 8U)
                                            : check};
    }
    const auto field = findExtraField(header.extra, kExtraAes);
    if (!field || field->size() < kAesFieldSize) {
        return std::nullopt;
    }
    const auto version = loadLittleEndian<std::uint16_t>(*field);
    const std::uint8_t strength = (*field)[4];
    if (version < 1 || version > 2 || strength < 1 || strength > 3) {
        return std::nullopt;
    }
    header.method = loadLittleEndian<std::uint16_t>(*field, 5);
    return Encryption{
        .kind = Encryption::Kind::kAes, .aesStrength = strength, .hidesChecksum = version == 2};
}

// What a single header shows to be impossible or not to be had.
std::optional<ErrorCode> refusalOf(const CentralDirectoryHeader& header,
                                   const EntryData& data,
                                   bool sizesAreCut) {
    const Entry& entry = data.entry;
    if (header.disk != 0) {
        return ErrorCode::kMultipleDisks;
    }
    if (!isSupportedMethod(header.method) || (header.flags & kFlagPatchData) != 0) {
        return ErrorCode::kUnsupportedMethod;
    }
    if (isAmbiguous(rawNameOf(header))) {
        return ErrorCode::kUnsafeName;
    }
    const std::uint64_t around = data.encryption.headerSize() + data.encryption.trailerSize();
    if (header.compressedSize < around && entry.type != EntryType::kFolder) {
        return ErrorCode::kSizeMismatch;
    }
    const std::uint64_t packed = header.compressedSize - std::min(around, header.compressedSize);
    const bool folderWithData = entry.type == EntryType::kFolder && header.uncompressedSize != 0;
    const bool storedOtherwise =
        header.method == kMethodStored && packed != header.uncompressedSize;
    if (folderWithData || storedOtherwise ||
        (!sizesAreCut && header.uncompressedSize > mostUncompressedSize(header.method, packed))) {
        return ErrorCode::kSizeMismatch;
    }
    return std::nullopt;
}

// Whether an entry of an archive without ZIP64 can be so much longer than it says that its size did
// not fit into the header. Decoders of other methods need to know the size.
bool mayBeLonger(const CentralDirectoryHeader& header) {
    return header.method == kMethodDeflate &&
           mostUncompressedSize(header.method, header.compressedSize) >=
               header.uncompressedSize + k32Bits &&
           !findExtraField(header.extra, kExtraZip64);
}

// Whether an entry of its size can begin where it does and end there. The name in its local header
// may be in another, shorter charset, so it is left out.
bool fitsIntoSlot(const Entry& entry, std::uint64_t slotEnd) {
    const std::uint64_t slot = slotEnd - entry.localHeaderOffset;
    return slot >= kLocalFileHeaderSize && slot - kLocalFileHeaderSize >= entry.compressedSize;
}

// Gives sizes of which only the lower 32 bits are known their true value, as far as the room that
// the entry has shows it.
void restoreSizes(Entry& entry, std::uint64_t slotEnd) {
    const std::uint64_t slot = slotEnd - entry.localHeaderOffset;
    const std::uint64_t room = slot - kLocalFileHeaderSize;
    if (slot < kLocalFileHeaderSize || room <= entry.compressedSize) {
        return;
    }
    const std::uint64_t missing = (room - entry.compressedSize) / k32Bits * k32Bits;
    entry.compressedSize += missing;
    if (entry.method == kMethodStored) {
        entry.uncompressedSize = entry.compressedSize;
    }
}

// Gives every entry that has a place the end of its slot, and finds fault with those whose data
// cannot be within it. The local header's extra fields are not known yet, so this is what the
// directory shows; the rest is checked against the slot when that is read.
//
// Returns where the first entry begins.
std::uint64_t assignSlots(EntryTable& table, const DirectoryLocation& location) {
    std::vector<std::size_t> order(table.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    order.erase(
        std::remove_if(
            order.begin(), order.end(), [&table](std::size_t i) { return table[i].placeless; }),
        order.end());
    const auto before = [&table](std::size_t a, std::size_t b) {
        return table[a].entry.localHeaderOffset < table[b].entry.localHeaderOffset;
    };
    if (!std::is_sorted(order.begin(), order.end(), before)) {
        std::stable_sort(order.begin(), order.end(), before);
    }
    std::uint64_t slotEnd = location.offset;
    for (std::size_t i = order.size(); i-- > 0;) {
        EntryData& data = table[order[i]];
        Entry& entry = data.entry;
        if (location.cutTo32Bits) {
            restoreSizes(entry, slotEnd);
        }
        if (!fitsIntoSlot(entry, slotEnd)) {
            table.addFault(order[i], ErrorCode::kOverlap, entry.localHeaderOffset);
        }
        data.slotEnd = slotEnd;
        slotEnd = entry.localHeaderOffset;
    }
    return slotEnd;
}

// Turns the headers into the table.
class TableBuilder {
  public:
    TableBuilder(const ByteSource& file,
                 const DirectoryLocation& location,
                 const NameDecoder& names,
                 std::size_t entries,
                 std::size_t namesSize)
        : file_(file), location_(location), names_(names), hasSlots_(!location.cutTo32Bits) {
        table_.expect(entries, namesSize);
    }

    void add(CentralDirectoryHeader header, std::uint64_t offset) {
        placeInWhole(header);
        const DecodedName name = names_.decode(rawNameOf(header), nameStorage_);
        const auto path = judgeEntryName(name.text, pathStorage_);
        EntryData data;
        setTypeAndPermissions(header, path && path->isFolder, data);
        std::optional<ErrorCode> fault;
        if (!path) {
            fault = path.error().code;
        }
        const auto encryption = encryptionOf(header);
        data.encryption = encryption.value_or(Encryption());
        data.entry.encrypted = !encryption || *encryption;
        if (!fault && !encryption) {
            fault = ErrorCode::kEncrypted;
        }
        if (!fault) {
            fault = refusalOf(header, data, location_.cutTo32Bits);
        }
        const auto localHeader =
            header.disk == 0 ? localHeaderOf(header) : std::optional<std::uint64_t>();
        if (!fault && !localHeader) {
            fault = ErrorCode::kDamagedDirectory;
        }
        if (path && path->path.empty()) {
            addNameless(localHeader, fault, offset);
            return;
        }
        keepNames(header, path ? path->path : name.text, data);
        data.entry.comment = keepComment(header);
        data.flags = header.flags;
        data.placeless = !localHeader;
        data.namedAsFolder = path && path->isFolder;
        data.sizesMayBeCut = location_.cutTo32Bits || (!location_.zip64 && mayBeLonger(header));
        data.legacyName = name.legacy;
        data.entry.method = header.method;
        data.entry.crc32 = header.crc32;
        data.entry.compressedSize = header.compressedSize;
        data.entry.uncompressedSize = header.uncompressedSize;
        data.entry.localHeaderOffset = localHeader.value_or(0);
        const auto exact = modificationTimeIn(header.extra);
        data.entry.modified = exact ? *exact : days_.moment(header.modified);
        closeSlot(data.entry.localHeaderOffset);
        hasSlots_ = hasSlots_ && !data.placeless;
        hasLegacyNames_ = hasLegacyNames_ || data.legacyName;
        table_.add(data);
        if (!fault && header.method == kMethodDeflate && !data.encryption) {
            if (const auto field = findExtraField(header.extra, kExtraSections)) {
                table_.addSections(*localHeader, *field);
            }
        }
        if (fault) {
            table_.addFault(table_.size() - 1, *fault, offset);
        }
    }

    // The table, with a slot for each entry that has a place.
    EntryTable take() {
        closeSlot(location_.offset);
        if (hasSlots_ && table_.size() > 0) {
            firstEntry_ = table_[0].entry.localHeaderOffset;
        } else {
            firstEntry_ = assignSlots(table_, location_);
        }
        return std::move(table_);
    }

    // Of the table that was taken: where the first entry begins.
    [[nodiscard]] std::uint64_t firstEntry() const { return firstEntry_; }
    [[nodiscard]] bool hasLegacyNames() const { return hasLegacyNames_; }

  private:
    void addNameless(std::optional<std::uint64_t> localHeader,
                     std::optional<ErrorCode> fault,
                     std::uint64_t offset) {
        if (localHeader) {
            table_.addNameless(*localHeader);
        }
        if (fault) {
            table_.addFault(EntryTable::kNoEntry, *fault, offset);
        }
    }

    // Of the entry that was added last.
    void closeSlot(std::uint64_t slotEnd) {
        if (table_.size() > 0 && hasSlots_) {
            EntryData& last = table_[table_.size() - 1];
            last.slotEnd = slotEnd;
            hasSlots_ =
                slotEnd >= last.entry.localHeaderOffset && fitsIntoSlot(last.entry, slotEnd);
        }
    }

    std::string_view keepComment(const CentralDirectoryHeader& header) {
        if (header.comment.empty()) {
            return {};
        }
        const RawName comment{.bytes = header.comment, .utf8Flag = (header.flags & kFlagUtf8) != 0};
        return table_.keep(names_.decode(comment, nameStorage_).text);
    }

    // A place that is told by volume becomes that in the whole.
    void placeInWhole(CentralDirectoryHeader& header) const {
        const auto starts = file_.volumeStarts();
        if (header.disk < starts.size()) {
            header.localHeaderOffset += starts[header.disk];
            header.disk = 0;
        }
    }

    // Where in the file the local header is; nothing if that cannot be.
    [[nodiscard]] std::optional<std::uint64_t> localHeaderOf(
        const CentralDirectoryHeader& header) const {
        std::uint64_t offset = header.localHeaderOffset;
        if (offset > location_.offset - location_.archiveStart) {
            return std::nullopt;
        }
        if (!location_.cutTo32Bits) {
            return location_.archiveStart + offset;
        }
        // One of the places that the 32 bits may mean, known by its name.
        while (offset < location_.offset && !beginsEntry(header, offset)) {
            offset += k32Bits;
        }
        return offset < location_.offset ? std::optional(offset) : std::nullopt;
    }

    [[nodiscard]] bool beginsEntry(const CentralDirectoryHeader& header,
                                   std::uint64_t offset) const {
        std::vector<std::uint8_t> bytes(kLocalFileHeaderSize + header.name.size());
        return file_.readExactlyAt(offset, bytes) &&
               loadLittleEndian<std::uint32_t>(bytes) == kLocalFileHeaderSignature &&
               std::equal(header.name.begin(),
                          header.name.end(),
                          bytes.begin() + kLocalFileHeaderSize,
                          bytes.end());
    }

    // Keeps the name once where it begins with the path, which it nearly always does.
    void keepNames(const CentralDirectoryHeader& header, std::string_view path, EntryData& data) {
        data.rawName = table_.keep(asText(header.name));
        data.entry.path = data.rawName.starts_with(path) ? data.rawName.substr(0, path.size())
                                                         : table_.keep(path);
    }

    const ByteSource& file_;
    const DirectoryLocation& location_;
    const NameDecoder& names_;
    EntryTable table_;
    DosDays days_;
    // Whether each entry so far lies behind the one before it, as nearly always, and has room: then
    // its slot is known when the next one comes.
    bool hasSlots_;
    bool hasLegacyNames_ = false;
    std::uint64_t firstEntry_ = 0;
    std::string nameStorage_;
    std::string pathStorage_;
};

}  // namespace

Result<EntryTable> readCentralDirectory(const ByteSource& file,
                                        const DirectoryLocation& location,
                                        Warnings& warnings) {
    const auto size =
        static_cast<std::size_t>(std::min<std::uint64_t>(kDirectoryWindow, location.size));
    const auto storage = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    const MutableBytes window(storage.get(), size);
    NameDecoder names;
    std::size_t namesSize = 0;
    std::size_t headers = 0;
    auto considered =
        forEachHeader(file,
                      location,
                      window,
                      [&](const CentralDirectoryHeader& header, std::uint64_t offset) -> Result<> {
                          const RawName name = rawNameOf(header);
                          if (isTooLong(name)) {
                              return failure(ErrorCode::kNameTooLong, offset);
                          }
                          names.consider(name);
                          ++headers;
                          namesSize += header.name.size();
                          return {};
                      });
    if (!considered) {
        return passOn(considered);
    }
    if (!isClaimed(headers, location)) {
        return failure(ErrorCode::kDamagedDirectory, location.offset);
    }
    names.decide();

    TableBuilder builder(file, location, names, headers, namesSize);
    auto built = forEachHeader(
        file,
        location,
        window,
        [&builder](const CentralDirectoryHeader& header, std::uint64_t offset) -> Result<> {
            builder.add(header, offset);
            return {};
        });
    if (!built) {
        return passOn(built);
    }
    EntryTable table = builder.take();
    const auto unlisted = findLocalHeader(file, location.archiveStart, builder.firstEntry());
    if (unlisted && *unlisted && !table.isNameless(**unlisted)) {
        warnings.add(WarningCode::kUnlistedEntry, {}, **unlisted);
    }
    for (std::size_t i = 0; builder.hasLegacyNames() && i < table.size(); ++i) {
        if (table[i].legacyName) {
            warnings.add(
                WarningCode::kLegacyCharset, table[i].entry.path, table[i].entry.localHeaderOffset);
        }
    }
    return table;
}

EntryTable tableOf(const CentralDirectoryHeader& header,
                   const NameDecoder& names,
                   const ByteSource& file) {
    const DirectoryLocation everything{.offset = file.size(), .zip64 = true};
    TableBuilder builder(file, everything, names, 1, header.name.size());
    builder.add(header, header.localHeaderOffset);
    return builder.take();
}

}  // namespace pellumar::archive
