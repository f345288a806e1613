#include "archive/reading/EntryReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "archive/base/Crc32.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/LocalFileHeader.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/NameComparison.h"
#include "archive/reading/SignatureSearch.h"

namespace pellumar::archive {

namespace {

using namespace format;

// Entries up to this size unpacked are inflated in one call. Twice the second-level cache's usual
// share is still faster than streaming them.
constexpr std::size_t kOutputSize = 512UL * 1024;
// Holds the compressed form of such an entry between its headers.
constexpr std::size_t kInputSize = 640UL * 1024;
// Local headers seldom have more extra fields than this; one that has is read again.
constexpr std::size_t kUsualExtra = 256;
// How much is read at once of entries that are needed one after another. Stays in the cache.
constexpr std::size_t kWindowSize = 128UL * 1024;

// The bits that change what an entry is; the compression options in bits 1 and 2 do not, and what
// the name's letters are is asked with the name.
constexpr std::uint16_t kComparedFlags =
    kFlagEncrypted | kFlagPatchData | kFlagStrongEncryption | kFlagMaskedHeader;

// With a data descriptor, the values in front of the data are not known yet, so zero, unless the
// writer knew them after all.
bool agreesOrUnknown(std::uint64_t local, std::uint64_t central, bool mayBeUnknown) {
    return local == central || (mayBeUnknown && local == 0);
}

std::uint64_t usualHeaderSize(const EntryData& data) {
    return kLocalFileHeaderSize + data.rawName.size() + kUsualExtra;
}

bool hasDescriptor(const LocalFileHeader& local) {
    return (local.flags & kFlagDataDescriptor) != 0;
}

// Some writers set the bit in the local header alone. The other way round nobody does.
bool flagsAgree(const LocalFileHeader& local, const EntryData& data) {
    return (local.flags & kComparedFlags) == (data.flags & kComparedFlags) &&
           (hasDescriptor(local) || (data.flags & kFlagDataDescriptor) == 0);
}

bool namesAgree(const LocalFileHeader& local, const EntryData& data) {
    const std::string_view name = asText(local.name);
    const bool plain = ((local.flags ^ data.flags) & kFlagUtf8) == 0 &&
                       !findExtraField(local.extra, kExtraUnicodePath);
    return (plain && name == data.rawName) ||
           meansTheSame({.bytes = local.name,
                         .utf8Flag = (local.flags & kFlagUtf8) != 0,
                         .extra = local.extra},
                        data);
}

bool sizesAgree(std::uint64_t local, std::uint64_t central, const EntryData& data, bool unknown) {
    return agreesOrUnknown(local, central, unknown) ||
           (data.sizesMayBeCut && local == static_cast<std::uint32_t>(central));
}

// Info-ZIP, before a data descriptor, has the time in place of the checksum that the header of
// traditional encryption is checked by.
bool holdsCheckOnly(const LocalFileHeader& local, const Encryption& encryption) {
    return encryption.kind == Encryption::Kind::kTraditional && (local.crc32 & kMax16) == 0 &&
           local.crc32 >> 24U == encryption.otherCheck;
}

// The descriptor that decides what the header of traditional encryption is checked by may be one
// that the local header alone tells of.
Encryption encryptionOf(const LocalFileHeader& local, const EntryData& data) {
    Encryption encryption = data.encryption;
    if (hasDescriptor(local) && (data.flags & kFlagDataDescriptor) == 0) {
        encryption.otherCheck = static_cast<std::uint8_t>(local.modified.time >> 8U);
    }
    return encryption;
}

bool agrees(const LocalFileHeader& local, const EntryData& data) {
    const Entry& entry = data.entry;
    const bool described = hasDescriptor(local);
    const bool aes = data.encryption.kind == Encryption::Kind::kAes;
    return flagsAgree(local, data) && local.method == (aes ? kMethodAes : entry.method) &&
           (agreesOrUnknown(local.crc32, entry.crc32, described) ||
            (described && holdsCheckOnly(local, encryptionOf(local, data)))) &&
           sizesAgree(local.compressedSize, entry.compressedSize, data, described) &&
           sizesAgree(local.uncompressedSize, entry.uncompressedSize, data, described) &&
           namesAgree(local, data);
}

}  // namespace

bool isOverRatio(const Entry& entry, std::uint64_t ratio) {
    const std::uint64_t packed = std::max<std::uint64_t>(entry.compressedSize, 1);
    const std::uint64_t whole = entry.uncompressedSize / packed;
    return whole > ratio || (whole == ratio && entry.uncompressedSize % packed != 0);
}

EntryReader::EntryReader(const ByteSource& file,
                         const Password* password,
                         const EntryLimits& limits,
                         OneShotInflater inflater)
    : file_(file),
      password_(password),
      limits_(limits),
      inflater_(std::move(inflater)),
      input_(std::make_unique_for_overwrite<std::uint8_t[]>(kInputSize)),
      output_(std::make_unique_for_overwrite<std::uint8_t[]>(kOutputSize)) {}

Result<std::unique_ptr<EntryReader>> EntryReader::create(const ByteSource& file,
                                                         const Password* password,
                                                         const EntryLimits& limits) {
    auto inflater = OneShotInflater::create();
    if (!inflater) {
        return passOn(inflater);
    }
    return std::unique_ptr<EntryReader>(
        new EntryReader(file, password, limits, std::move(*inflater)));
}

Result<> EntryReader::read(const EntryData& data,
                           bool skipChecksum,
                           DataSink& sink,
                           std::uint64_t soonUntil) {
    auto done = readUnnamed(data, skipChecksum, sink, soonUntil);
    // Its window may be large, and nobody else may have one meanwhile.
    otherDecoder_.reset();
    running_.decryptor.reset();
    if (!done) {
        return Failure(
            std::move(done.error()).about(data.entry.path, data.entry.localHeaderOffset));
    }
    return {};
}

Result<std::optional<std::uint64_t>> EntryReader::checkHeader(const EntryData& data,
                                                              std::uint64_t soonUntil) {
    const auto tell = [&data](Error error) {
        return Failure(std::move(error).about(data.entry.path, data.entry.localHeaderOffset));
    };
    auto located = locate(data, usualHeaderSize(data), soonUntil);
    if (!located) {
        return tell(std::move(located.error()));
    }
    // What the directory does not know of had better be there before anything is written.
    if (located->described && (data.flags & kFlagDataDescriptor) == 0) {
        if (auto described = checkDescriptor(data, *located); !described) {
            return tell(std::move(described.error()));
        }
    }
    if (data.slotEnd - located->dataEnd < kLocalFileHeaderSize) {
        return std::nullopt;
    }
    auto unlisted = findLocalHeader(file_, located->dataEnd, data.slotEnd);
    if (!unlisted) {
        return tell(std::move(unlisted.error()));
    }
    return *unlisted;
}

Result<> EntryReader::readUnnamed(const EntryData& data,
                                  bool skipChecksum,
                                  DataSink& sink,
                                  std::uint64_t soonUntil) {
    const Entry& entry = data.entry;
    const std::uint64_t usual =
        usualHeaderSize(data) + entry.compressedSize + kLongestDataDescriptor;
    // A larger entry streams in any case; its first piece is enough.
    const bool fits = usual <= kInputSize && entry.uncompressedSize <= kOutputSize;
    auto located = locate(data, fits ? usual : kStreamedPiece, soonUntil);
    if (!located) {
        return passOn(located);
    }
    if (auto described = checkDescriptor(data, *located); !described) {
        return described;
    }
    const bool whole = !data.encryption && located->buffered.size() >= entry.compressedSize &&
                       entry.uncompressedSize <= kOutputSize &&
                       (entry.method == kMethodStored || entry.method == kMethodDeflate);
    if (whole) {
        const ByteView compressed =
            located->buffered.first(static_cast<std::size_t>(entry.compressedSize));
        return unpackWhole(entry, compressed, skipChecksum, sink);
    }
    if (auto started = start(data, *located, skipChecksum); !started) {
        return started;
    }
    return stream(sink);
}

Result<> EntryReader::checkPassword(const EntryData& data) {
    auto located = locate(data, usualHeaderSize(data), 0);
    if (!located) {
        return Failure(
            std::move(located.error()).about(data.entry.path, data.entry.localHeaderOffset));
    }
    auto tried = encryptionHeaderOf(*located).and_then([&](const EncryptionHeader& header) {
        return tryPassword(located->encryption,
                           *password_,
                           ByteView(header).first(located->encryption.headerSize()));
    });
    if (!tried) {
        return Failure(
            std::move(tried.error()).about(data.entry.path, data.entry.localHeaderOffset));
    }
    return {};
}

Result<std::unique_ptr<Decryptor>> EntryReader::decryptorFor(const Located& located) const {
    auto header = encryptionHeaderOf(located);
    if (!header) {
        return passOn(header);
    }
    return makeDecryptor(
        located.encryption, *password_, ByteView(*header).first(located.encryption.headerSize()));
}

Result<EntryReader::EncryptionHeader> EntryReader::encryptionHeaderOf(
    const Located& located) const {
    if (auto installed = checkIsInstalled(located.encryption); !installed) {
        return passOn(installed);
    }
    if (password_ == nullptr) {
        return failure(ErrorCode::kEncrypted);
    }
    EncryptionHeader header{};
    const MutableBytes bytes = MutableBytes(header).first(located.encryption.headerSize());
    if (auto read = file_.readExactlyAt(located.dataOffset, bytes); !read) {
        return passOn(read);
    }
    return header;
}

Result<ByteView> EntryReader::window(std::uint64_t offset,
                                     std::size_t size,
                                     std::uint64_t soonUntil) {
    const bool holds = offset >= inputOffset_ && offset - inputOffset_ <= inputSize_ &&
                       inputSize_ - (offset - inputOffset_) >= size;
    if (!holds) {
        const std::uint64_t soon = soonUntil > offset ? soonUntil - offset : 0;
        const MutableBytes target(
            input_.get(),
            std::max(size, static_cast<std::size_t>(std::min<std::uint64_t>(soon, kWindowSize))));
        inputSize_ = 0;
        if (auto read = file_.readExactlyAt(offset, target); !read) {
            return passOn(read);
        }
        inputOffset_ = offset;
        inputSize_ = target.size();
    }
    const auto skipped = static_cast<std::size_t>(offset - inputOffset_);
    return ByteView(input_.get() + skipped, inputSize_ - skipped);
}

Result<EntryReader::Located> EntryReader::locate(const EntryData& data,
                                                 std::uint64_t wanted,
                                                 std::uint64_t soonUntil) {
    const Entry& entry = data.entry;
    const std::uint64_t slot = data.slotEnd - entry.localHeaderOffset;
    const auto withinSlot = [slot](ByteView bytes) {
        return bytes.first(static_cast<std::size_t>(std::min<std::uint64_t>(slot, bytes.size())));
    };
    auto head = window(
        entry.localHeaderOffset, static_cast<std::size_t>(std::min(slot, wanted)), soonUntil);
    if (!head) {
        return passOn(head);
    }
    // The directory's check left room for the fixed part in every slot.
    const std::size_t headerSize = LocalFileHeader::recordSize(withinSlot(*head));
    if (headerSize > slot || entry.compressedSize > slot - headerSize) {
        return failure(ErrorCode::kOverlap, entry.localHeaderOffset);
    }
    if (headerSize > head->size()) {
        head = window(entry.localHeaderOffset, headerSize, soonUntil);
        if (!head) {
            return passOn(head);
        }
    }
    auto local = LocalFileHeader::parse(withinSlot(*head), entry.localHeaderOffset);
    if (!local) {
        return passOn(local);
    }
    if (!agrees(*local, data)) {
        return failure(ErrorCode::kHeaderMismatch, entry.localHeaderOffset);
    }
    const std::uint64_t dataOffset = entry.localHeaderOffset + headerSize;
    return Located{.dataOffset = dataOffset,
                   .dataEnd = dataOffset + entry.compressedSize,
                   .described = hasDescriptor(*local),
                   .encryption = encryptionOf(*local, data),
                   .buffered = withinSlot(*head).subspan(headerSize)};
}

Result<> EntryReader::checkDescriptor(const EntryData& data, const Located& located) {
    if (!located.described) {
        return {};
    }
    const Entry& entry = data.entry;
    const std::uint64_t offset = located.dataEnd;
    const auto size = static_cast<std::size_t>(
        std::min<std::uint64_t>(kLongestDataDescriptor, data.slotEnd - offset));
    std::array<std::uint8_t, kLongestDataDescriptor> buffer{};
    ByteView descriptor;
    if (located.buffered.size() >= entry.compressedSize + size) {
        descriptor = located.buffered.subspan(static_cast<std::size_t>(entry.compressedSize), size);
    } else {
        const MutableBytes target = MutableBytes(buffer).first(size);
        if (auto read = file_.readExactlyAt(offset, target); !read) {
            return read;
        }
        descriptor = target;
    }
    if (!matchesDataDescriptor(
            descriptor, entry.crc32, entry.compressedSize, entry.uncompressedSize)) {
        return failure(ErrorCode::kHeaderMismatch, offset);
    }
    return {};
}

Result<> EntryReader::unpackWhole(const Entry& entry,
                                  ByteView compressed,
                                  bool skipChecksum,
                                  DataSink& sink) {
    ByteView unpacked = compressed;
    if (entry.method != kMethodStored) {
        const MutableBytes output(output_.get(), static_cast<std::size_t>(entry.uncompressedSize));
        if (auto inflated = inflater_.inflate(compressed, output); !inflated) {
            return inflated;
        }
        unpacked = output;
    }
    if (!skipChecksum && crc32(kCrc32OfNothing, unpacked) != entry.crc32) {
        return failure(ErrorCode::kChecksumMismatch);
    }
    return sink.writeVerified(unpacked);
}

Result<Decoder*> EntryReader::decoderFor(const EntryData& data) {
    const bool inflate = data.entry.method == kMethodDeflate;
    if (inflate && inflateDecoder_) {
        if (auto ready = inflateDecoder_->reset(); !ready) {
            return passOn(ready);
        }
        return inflateDecoder_.get();
    }
    auto made = makeDecoder({.method = data.entry.method,
                             .flags = data.flags,
                             .uncompressedSize = data.entry.uncompressedSize,
                             .mostMemory = limits_.windowMemory});
    if (!made) {
        return passOn(made);
    }
    auto& kept = inflate ? inflateDecoder_ : otherDecoder_;
    kept = std::move(*made);
    return kept.get();
}

Result<ByteView> EntryReader::Located::next(const ByteSource& file, MutableBytes buffer) {
    const auto size = static_cast<std::size_t>(
        std::min<std::uint64_t>(buffer.size(), dataEnd - (dataOffset + taken)));
    const MutableBytes piece = buffer.first(size);
    if (auto read = file.readExactlyAt(dataOffset + taken, piece); !read) {
        return passOn(read);
    }
    taken += size;
    return piece;
}

Result<std::uint64_t> EntryReader::findData(const EntryData& data) {
    auto located = locate(data, usualHeaderSize(data), 0);
    if (!located) {
        return passOn(located);
    }
    if (auto described = checkDescriptor(data, *located); !described) {
        return passOn(described);
    }
    return located->dataOffset;
}

Result<> EntryReader::begin(const EntryData& data, bool skipChecksum) {
    const auto started = [&]() -> Result<> {
        auto located = locate(data, kStreamedPiece, 0);
        if (!located) {
            return passOn(located);
        }
        if (auto described = checkDescriptor(data, *located); !described) {
            return described;
        }
        return start(data, *located, skipChecksum);
    }();
    if (!started) {
        return Failure(Error(started.error()).about(data.entry.path, data.entry.localHeaderOffset));
    }
    return {};
}

Result<> EntryReader::start(const EntryData& data, const Located& located, bool skipChecksum) {
    running_ = Running();
    running_.data = &data;
    running_.located = located;
    running_.declared = data.entry.uncompressedSize;
    running_.skipChecksum = skipChecksum || data.encryption.hidesChecksum;
    running_.checksum = kCrc32OfNothing;
    inputSize_ = 0;  // what follows is read over it
    if (data.encryption) {
        if (auto started = startDecrypting(); !started) {
            return started;
        }
    }
    auto decoder = decoderFor(data);
    if (!decoder) {
        return passOn(decoder);
    }
    running_.decoder = *decoder;
    if (data.encryption) {
        return {};
    }
    running_.input = located.buffered.first(static_cast<std::size_t>(
        std::min<std::uint64_t>(located.buffered.size(), data.entry.compressedSize)));
    running_.located.taken = running_.input.size();
    return {};
}

// What the buffer holds of the entry is read again.
Result<> EntryReader::startDecrypting() {
    Located& located = running_.located;
    const Encryption& encryption = located.encryption;
    auto decryptor = decryptorFor(located);
    if (!decryptor) {
        return passOn(decryptor);
    }
    running_.decryptor = std::move(*decryptor);
    const MutableBytes trailer = MutableBytes(running_.trailer).first(encryption.trailerSize());
    located.dataOffset += encryption.headerSize();
    located.dataEnd -= trailer.size();
    return file_.readExactlyAt(located.dataEnd, trailer);
}

Result<ByteView> EntryReader::nextInput() {
    const MutableBytes buffer(input_.get(), kStreamedPiece);
    auto next = running_.located.next(file_, buffer);
    if (next && running_.decryptor) {
        running_.decryptor->decrypt(buffer.first(next->size()));
    }
    return next;
}

Result<> EntryReader::expectMore() {
    if (running_.produced <= running_.declared) {
        return {};
    }
    if (!running_.data->sizesMayBeCut) {
        return failure(ErrorCode::kSizeMismatch);
    }
    constexpr std::uint64_t kCut = std::uint64_t{kMax32} + 1;
    running_.declared += kCut;
    running_.grown += kCut;
    Entry larger = running_.data->entry;
    larger.uncompressedSize = running_.declared;
    return larger.uncompressedSize > limits_.bytes || isOverRatio(larger, limits_.ratio)
               ? failure(ErrorCode::kOverLimit)
               : Result<>();
}

Result<> EntryReader::verifyEnd() {
    if (!running_.input.empty() || running_.produced != running_.declared) {
        return failure(ErrorCode::kSizeMismatch);
    }
    if (!running_.skipChecksum && running_.checksum != running_.data->entry.crc32) {
        return failure(ErrorCode::kChecksumMismatch);
    }
    if (!running_.decryptor) {
        return {};
    }
    return running_.decryptor->finish(
        ByteView(running_.trailer).first(running_.data->encryption.trailerSize()));
}

Result<std::size_t> EntryReader::decode(MutableBytes output) {
    const bool isCopied = running_.data->entry.method == kMethodStored && !running_.decryptor;
    if (isCopied && running_.input.empty()) {
        auto piece = running_.located.next(file_, output);
        if (!piece) {
            return passOn(piece);
        }
        running_.ended = piece->empty();
        return piece->size();
    }
    if (running_.input.empty()) {
        auto next = nextInput();
        if (!next) {
            return passOn(next);
        }
        running_.input = *next;
    }
    auto step = running_.decoder->decode(running_.input, output);
    if (!step) {
        return passOn(step);
    }
    running_.input = running_.input.subspan(step->consumed);
    running_.ended = step->consumed == 0 && step->produced == 0;
    if (running_.ended && !step->finished) {
        return failure(ErrorCode::kDamagedData);
    }
    return step->produced;
}

Result<std::size_t> EntryReader::pullUnnamed(MutableBytes output) {
    while (!running_.ended) {
        auto produced = decode(output);
        if (!produced) {
            return passOn(produced);
        }
        running_.produced += *produced;
        if (auto expected = expectMore(); !expected) {
            return passOn(expected);
        }
        if (*produced > 0) {
            if (!running_.skipChecksum) {
                running_.checksum = crc32(running_.checksum, output.first(*produced));
            }
            return *produced;
        }
    }
    if (auto right = verifyEnd(); !right) {
        return passOn(right);
    }
    return 0;
}

Result<std::size_t> EntryReader::pull(MutableBytes output) {
    auto pulled = pullUnnamed(output);
    if (!pulled) {
        const Entry& entry = running_.data->entry;
        return Failure(std::move(pulled.error()).about(entry.path, entry.localHeaderOffset));
    }
    return pulled;
}

MutableBytes EntryReader::roomFor(DataSink& sink) {
    const MutableBytes room = sink.room();
    return room.empty() ? MutableBytes(output_.get(), kStreamedPiece) : room;
}

Result<> EntryReader::stream(DataSink& sink) {
    for (;;) {
        const MutableBytes room = roomFor(sink);
        auto pulled = pullUnnamed(room);
        if (!pulled) {
            return passOn(pulled);
        }
        if (running_.grown > 0) {
            if (auto expected = sink.expectMore(std::exchange(running_.grown, 0)); !expected) {
                return expected;
            }
        }
        // Of an entry without data the sink has to hear as well.
        if (*pulled > 0 || running_.produced == 0) {
            if (auto written = sink.write(room.first(*pulled)); !written) {
                return written;
            }
        }
        if (*pulled == 0) {
            return {};
        }
    }
}

}  // namespace pellumar::archive
