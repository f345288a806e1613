#include "archive/reading/Salvager.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "archive/format/LocalFileHeader.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/CentralDirectory.h"
#include "archive/reading/DataMeasure.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/DirectoryLocator.h"
#include "archive/reading/EntryReader.h"
#include "archive/reading/HeaderScan.h"
#include "archive/reading/NameDecoder.h"
#include "archive/reading/SalvageTarget.h"

namespace pellumar::archive {

namespace {

using namespace format;

// What may be read in vain, so that headers which all claim the same data, or the same extra field,
// do not take for ever: of honest archives no byte is read in vain more than three times.
constexpr std::uint64_t kMostInVain = 8;
constexpr std::uint64_t kAlwaysInVain = 64ULL * 1024 * 1024;
// How often the caller is told of the progress: after each such part of the archive.
constexpr std::uint64_t kParts = 200;

CentralDirectoryHeader directoryHeaderOf(const LocalFileHeader& local, std::uint64_t offset) {
    CentralDirectoryHeader header;
    header.flags = local.flags;
    header.method = local.method;
    header.modified = local.modified;
    header.crc32 = local.crc32;
    header.compressedSize = local.compressedSize;
    header.uncompressedSize = local.uncompressedSize;
    header.localHeaderOffset = offset;
    header.name = local.name;
    header.extra = local.extra;
    return header;
}

// One salvage, going through the archive once.
class Salvager {
  public:
    Salvager(const ByteSource& source,
             const DestinationTree& tree,
             const SalvageOptions& options,
             std::unique_ptr<EntryReader> reader)
        : source_(source),
          options_(options),
          reader_(std::move(reader)),
          scan_(source),
          target_(tree, options.stop, report_) {}

    Result<SalvageReport> run() {
        readDirectory();
        if (!report_.hasDirectory) {
            considerNames();
        }
        names_.decide();
        std::uint64_t position = 0;
        while (const auto header = scan_.next(position, source_.size())) {
            tellProgress(*header);
            auto taken = take(*header);
            if (!taken) {
                return passOn(taken);
            }
            position = std::max(*taken, *header + 1);
            if (options_.stop.stop_requested()) {
                return failure(ErrorCode::kCancelled);
            }
        }
        loseUnseen();
        if (!report_.hasDirectory && report_.recovered == 0 && report_.lost == 0) {
            return failure(ErrorCode::kNotAnArchive);
        }
        target_.makeLinks([this](const EntryData& link, ErrorCode reason) {
            lose(link.entry.path, link.entry.localHeaderOffset, reason);
        });
        if (options_.progress) {
            options_.progress(source_.size(), source_.size());
        }
        return std::move(report_);
    }

  private:
    void readDirectory() {
        const auto location = locateDirectory(source_);
        if (!location) {
            return;
        }
        Warnings ignored;
        auto table = readCentralDirectory(source_, *location, ignored);
        if (!table) {
            return;
        }
        listed_ = std::move(*table);
        report_.hasDirectory = true;
        seen_.assign(listed_.size(), false);
        for (std::size_t i = 0; i < listed_.size(); ++i) {
            if (!listed_[i].placeless) {
                byPlace_.push_back(i);
            }
        }
        std::stable_sort(byPlace_.begin(), byPlace_.end(), [this](std::size_t a, std::size_t b) {
            return placeOf(a) < placeOf(b);
        });
    }

    [[nodiscard]] std::uint64_t placeOf(std::size_t index) const {
        return listed_[index].entry.localHeaderOffset;
    }

    // All names have a say in what their letters mean.
    void considerNames() {
        std::uint64_t position = 0;
        std::uint64_t headersRead = 0;
        while (const auto found = scan_.next(position, source_.size())) {
            if (isTooMuch(headersRead)) {
                return;
            }
            const auto header = headerAt(*found);
            headersRead += header_.size();
            if (header) {
                names_.consider({.bytes = header->name,
                                 .utf8Flag = (header->flags & kFlagUtf8) != 0,
                                 .extra = header->extra});
            }
            if (options_.stop.stop_requested()) {
                return;
            }
            position = *found + 1;
        }
    }

    // The header that stands there, if one can be parsed; valid until the next call.
    std::optional<LocalFileHeader> headerAt(std::uint64_t offset) {
        header_.resize(kLocalFileHeaderSize);
        if (!source_.readExactlyAt(offset, header_)) {
            return std::nullopt;
        }
        header_.resize(LocalFileHeader::recordSize(header_));
        if (!source_.readExactlyAt(offset, header_)) {
            return std::nullopt;
        }
        auto header = LocalFileHeader::parse(header_, offset);
        return header ? std::optional(*header) : std::nullopt;
    }

    // Takes the entry whose local header may be at `offset`; returns where the next may begin. An
    // error only for what ends the salvage.
    Result<std::uint64_t> take(std::uint64_t offset) {
        const auto place = std::lower_bound(
            byPlace_.begin(), byPlace_.end(), offset, [this](std::size_t i, std::uint64_t at) {
                return placeOf(i) < at;
            });
        if (place == byPlace_.end() || placeOf(*place) != offset) {
            return takeUnlisted(offset);
        }
        return takeListed(*place);
    }

    Result<std::uint64_t> takeListed(std::size_t index) {
        const EntryData& data = listed_[index];
        const std::uint64_t offset = placeOf(index);
        seen_[index] = true;
        // The directory may be what is damaged.
        if (data.entry.fault) {
            return takeUnlisted(offset);
        }
        const auto local = headerAt(offset);
        const std::uint64_t dataEnd =
            offset + (local ? header_.size() : kLocalFileHeaderSize) + data.entry.compressedSize;
        auto added = addWithPassword(data, [&] { return addListed(data); });
        if (added) {
            return dataEnd;
        }
        if (isEnd(added.error())) {
            return passOn(added);
        }
        if (added.error().code == ErrorCode::kHeaderMismatch && local) {
            return takeUnlisted(offset);
        }
        lose(data.entry.path, offset, added.error().code);
        return data.slotEnd;
    }

    [[nodiscard]] bool isTooMuch(std::uint64_t bytes) const {
        return bytes > kAlwaysInVain + kMostInVain * source_.size();
    }

    Result<std::uint64_t> takeUnlisted(std::uint64_t offset) {
        const std::uint64_t behind = offset + kLocalFileHeaderSize;
        if (isTooMuch(inVain_)) {
            lose({}, offset, ErrorCode::kOverLimit);
            return behind;
        }
        const auto local = headerAt(offset);
        inVain_ += header_.size();
        if (!local) {
            return behind;
        }
        CentralDirectoryHeader header = directoryHeaderOf(*local, offset);
        const std::uint64_t dataOffset = offset + header_.size();
        const EntryTable shown = tableOf(header, names_, source_);
        if (shown.size() == 0) {
            return behind;
        }
        const std::string path(shown[0].entry.path);
        // Some writers know the sizes and not the checksum.
        if ((header.flags & kFlagDataDescriptor) != 0 &&
            (header.compressedSize == 0 || header.crc32 == 0)) {
            if (auto measured = measure(header, shown[0], dataOffset); !measured) {
                return after(measured.error(), path, offset, behind);
            }
        }
        const EntryTable table = tableOf(header, names_, source_);
        const EntryData& data = table[0];
        if (data.entry.fault && *data.entry.fault != ErrorCode::kOverlap) {
            lose(path, offset, *data.entry.fault);
            return behind;
        }
        if (header.compressedSize > source_.size() - dataOffset) {
            lose(path, offset, ErrorCode::kTruncated);
            return behind;
        }
        const std::uint64_t dataEnd = dataOffset + header.compressedSize;
        if (auto added = addWithPassword(data, [&] { return addUnlisted(data); }); !added) {
            inVain_ += header.compressedSize;
            // What is in the data of an entry is none of this archive's entries.
            return after(added.error(), path, offset, scan_.isRecord(dataEnd) ? dataEnd : behind);
        }
        if (report_.hasDirectory) {
            foundElsewhere_.insert(std::hash<std::string_view>()(path));
        }
        // Of nothing the checksum says nothing: the header may have swallowed another.
        return header.compressedSize > 0 ? dataEnd : behind;
    }

    Result<std::uint64_t> after(const Error& error,
                                const std::string& path,
                                std::uint64_t offset,
                                std::uint64_t next) {
        if (isEnd(error)) {
            return Failure(error);
        }
        lose(path, offset, error.code);
        return next;
    }

    // Finds out the sizes that the header leaves to the descriptor.
    Result<> measure(CentralDirectoryHeader& header, const EntryData& shown, std::uint64_t offset) {
        DataMeasure measuring(source_, target_.room(), options_.stop);
        auto measures = measuring.measure(
            offset, shown.entry.method, shown.entry.encrypted, header.compressedSize);
        inVain_ += measures ? 0 : measuring.bytesRead();
        if (!measures) {
            return passOn(measures);
        }
        header.crc32 = measures->crc32;
        header.compressedSize = measures->compressedSize;
        header.uncompressedSize = measures->uncompressedSize;
        return {};
    }

    // Adds by `add`, again with each password that is given for it.
    template <typename Add>
    Result<> addWithPassword(const EntryData& data, Add add) {
        Result<> added = add();
        while (!added && askForPassword(added.error())) {
            added = add();
        }
        hasFitted_ = hasFitted_ || (added && data.entry.encrypted);
        return added;
    }

    // Whether there is a password to try after this error.
    bool askForPassword(const Error& error) {
        const bool wasWrong = error.code == ErrorCode::kWrongPassword;
        if (!options_.askForPassword || hasFitted_ || hasGivenUp_ ||
            (!wasWrong && error.code != ErrorCode::kEncrypted)) {
            return false;
        }
        const auto password = options_.askForPassword(wasWrong);
        hasGivenUp_ = password == nullptr;
        if (!hasGivenUp_) {
            reader_->usePassword(*password);
            password_ = password;
        }
        return !hasGivenUp_;
    }

    Result<> addListed(const EntryData& data) {
        switch (data.entry.type) {
            case EntryType::kFolder:
                return target_.addFolder(data.entry);
            case EntryType::kSymbolicLink:
                return target_.keepLink(data, *reader_);
            case EntryType::kFile:
                break;
        }
        return target_.addFile(data, *reader_);
    }

    // A local header does not tell of links: what it has of one is a file with the target in it.
    Result<> addUnlisted(const EntryData& data) {
        return data.entry.type == EntryType::kFolder ? target_.addFolder(data.entry)
                                                     : target_.addFile(data, *reader_);
    }

    // Whether the error ends all, and not one entry.
    static bool isEnd(const Error& error) {
        return error.code == ErrorCode::kCancelled || error.code == ErrorCode::kNoSpace;
    }

    // What the directory lists and is not where it says.
    void loseUnseen() {
        for (std::size_t i = 0; i < listed_.size(); ++i) {
            const Entry& entry = listed_[i].entry;
            if (seen_[i] || foundElsewhere_.count(std::hash<std::string_view>()(entry.path)) != 0) {
                continue;
            }
            const bool isCutOff = entry.localHeaderOffset >= source_.size();
            lose(entry.path,
                 entry.localHeaderOffset,
                 entry.fault.value_or(isCutOff ? ErrorCode::kTruncated
                                               : ErrorCode::kHeaderMismatch));
        }
    }

    void lose(std::string_view path, std::uint64_t offset, ErrorCode reason) {
        ++report_.lost;
        if (report_.lostEntries.size() < SalvageReport::kMostListed) {
            report_.lostEntries.push_back(
                {.path = std::string(path), .offset = offset, .reason = reason});
        }
    }

    void tellProgress(std::uint64_t position) {
        if (options_.progress && position >= nextTold_) {
            options_.progress(position, source_.size());
            nextTold_ = position + source_.size() / kParts + 1;
        }
    }

    const ByteSource& source_;
    const SalvageOptions& options_;
    std::unique_ptr<EntryReader> reader_;
    std::shared_ptr<const Password> password_;  // that was asked for
    bool hasFitted_ = false;                    // an entry was opened by one
    bool hasGivenUp_ = false;
    HeaderScan scan_;
    NameDecoder names_;  // of what the directory does not list
    EntryTable listed_;
    std::vector<std::size_t> byPlace_;
    std::vector<bool> seen_;
    std::unordered_set<std::size_t> foundElsewhere_;  // hashes of paths, than the directory says
    std::vector<std::uint8_t> header_;
    std::uint64_t inVain_ = 0;  // bytes read of data that was not whole
    std::uint64_t nextTold_ = 0;
    SalvageReport report_;
    SalvageTarget target_;
};

}  // namespace

Result<SalvageReport> salvageAll(const ByteSource& source,
                                 const std::filesystem::path& to,
                                 const SalvageOptions& options) {
    auto tree = DestinationTree::open(to);
    if (!tree) {
        return passOn(tree);
    }
    auto reader = EntryReader::create(source, options.password);
    if (!reader) {
        return passOn(reader);
    }
    return Salvager(source, *tree, options, std::move(*reader)).run();
}

}  // namespace pellumar::archive
