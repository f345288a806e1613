#include "archive/writing/ArchiveWriter.h"

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>

#include "archive/base/Crc32.h"
#include "archive/base/ProgressTeller.h"
#include "archive/codecs/Encryptor.h"
#include "archive/format/EntryPath.h"
#include "archive/format/EntryRecord.h"
#include "archive/format/Utf8.h"
#include "archive/format/ZipFormat.h"
#include "archive/writing/ArchiveOutput.h"
#include "archive/writing/ChunkCompressor.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/CompressionThreads.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/DirectoryWriter.h"
#include "archive/writing/PendingFile.h"
#include "archive/writing/StreamPieces.h"
#include "archive/writing/TakenNames.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kMostThreads = 8;

// What may lie ready or be under way at once: a chunk for each thread, and some that wait. With two
// threads all that the writer holds stays under 24 MiB, with eight under 48.
constexpr std::size_t kChunksWaiting = 6;

// What can be inflated by itself, of the content.
constexpr std::uint32_t kSection =
    DeflateCompressor::kChunksInSection * DeflateCompressor::kChunkSize;

// 1980-01-01 00:00 UTC, the first that MS-DOS can tell.
constexpr std::timespec kFixedTime{.tv_sec = 315'532'800, .tv_nsec = 0};

constexpr mode_t kPermissionBits = 07777;

// The same whatever umask the source was made with.
mode_t fixedMode(mode_t mode) {
    const bool all = S_ISLNK(mode);
    const bool executable = S_ISDIR(mode) || (mode & S_IXUSR) != 0;
    return (mode & static_cast<mode_t>(S_IFMT)) | (all ? 0777U : executable ? 0755U : 0644U);
}

bool areInRange(const EntryOptions& options) {
    const bool level = !options.level || (*options.level >= 0 && *options.level <= 9);
    return level && options.comment.size() <= format::kMax16 && format::isUtf8(options.comment) &&
           (!options.permissions || *options.permissions <= kPermissionBits);
}

// `found` is what the source was when it was opened.
format::EntryRecord recordOf(std::string name,
                             const ArchiveWriter::Source& source,
                             const struct stat& found,
                             bool reproducible) {
    const EntryOptions& options = source.options;
    format::EntryRecord record;
    record.name = std::move(name);
    record.unixMode = reproducible ? fixedMode(found.st_mode) : found.st_mode;
    if (options.permissions) {
        record.unixMode = (found.st_mode & static_cast<mode_t>(S_IFMT)) | *options.permissions;
    }
    record.modified = options.modified.value_or(reproducible ? kFixedTime : found.st_mtim);
    record.inUtc = reproducible;
    record.comment = options.comment;
    if (S_ISDIR(found.st_mode)) {
        record.method = format::kMethodStored;
        if (record.name.back() != '/') {
            record.name += '/';
        }
    } else {
        record.method = source.isStored(found) ? format::kMethodStored : format::kMethodDeflate;
        record.encrypted = options.password != nullptr;
        record.aesStrength = record.encrypted ? aesStrengthOf(options.encryption) : std::uint8_t{0};
        // Before it is read the checksum is not known, by which the password would be checked else.
        record.described = record.encrypted && record.aesStrength == 0;
        record.zip64Sizes = format::needsZip64Sizes(static_cast<std::uint64_t>(found.st_size));
    }
    return record;
}

// Takes the chunk for the entry's next, encrypted first where there is something to do so.
void addTo(format::EntryRecord& record, CompressedChunk& chunk, Encryptor* encryptor) {
    if (encryptor != nullptr) {
        encryptor->encrypt(chunk.data());
    }
    if (record.method == format::kMethodDeflate && !record.encrypted) {
        record.sectionContent = kSection;
        if (record.uncompressedSize % kSection == 0) {
            record.sectionData.push_back(0);
        }
        record.sectionData.back() += static_cast<std::uint32_t>(chunk.size);
    }
    record.crc32 = crc32Combine(record.crc32, chunk.crc32, chunk.uncompressedSize);
    record.compressedSize += chunk.size;
    record.uncompressedSize += chunk.uncompressedSize;
}

// The record without what only the end of the data tells.
format::EntryRecord hollow(format::EntryRecord record) {
    record.crc32 = 0;
    record.compressedSize = 0;
    record.uncompressedSize = 0;
    return record;
}

// What stands behind the data, now that all of it has been taken.
std::vector<std::uint8_t> endOf(format::EntryRecord& record, Encryptor* encryptor) {
    std::vector<std::uint8_t> end;
    if (encryptor != nullptr) {
        end = encryptor->trailer();
        record.compressedSize += end.size();
    }
    if (record.described) {
        format::appendDataDescriptor(end, record);
    }
    return end;
}

// Targets of links are short, and made anew for each source.
bool isSameMemory(const ArchiveWriter::Source& one, const ArchiveWriter::Source& other) {
    return one.memory == other.memory ||
           (one.memory && other.memory && one.memoryType == EntryType::kSymbolicLink &&
            *one.memory == *other.memory);
}

// Does something when it goes out of scope, an exception or not.
template <typename Action>
class AtExit {
  public:
    explicit AtExit(Action action) : action_(std::move(action)) {}
    ~AtExit() { action_(); }
    AtExit(const AtExit&) = delete;
    AtExit& operator=(const AtExit&) = delete;

  private:
    const Action action_;
};

}  // namespace

bool operator==(const ArchiveWriter::Source& one, const ArchiveWriter::Source& other) {
    return one.name == other.name && one.file == other.file && one.linkAsLink == other.linkAsLink &&
           isSameMemory(one, other) && one.memoryType == other.memoryType &&
           one.options.level == other.options.level &&
           one.options.password == other.options.password &&
           one.options.encryption == other.options.encryption;
}

bool ArchiveWriter::Source::isStored(const struct stat& found) const {
    return options.level == 0 || S_ISLNK(found.st_mode);
}

class ArchiveWriter::State {
  public:
    State(ArchiveOutput output, unsigned threads, WriterOptions options)
        : output_(std::move(output)),
          options_(std::move(options)),
          progress_(options_.progress),
          threadCount_(threads),
          buffers_(DeflateCompressor::kMostOutput),
          queue_(DeflateCompressor::kChunkSize,
                 buffers_.size(),
                 buffers_.size() * (threads + kChunksWaiting)) {}

    [[nodiscard]] Result<> start(const FileIdentity& archive) {
        return threads_.start(threadCount_, queue_, buffers_, archive);
    }

    [[nodiscard]] bool isClosed() const { return closed_; }
    [[nodiscard]] const Result<>& outcome() const { return outcome_; }
    [[nodiscard]] const Warnings& warnings() const { return warnings_; }
    [[nodiscard]] Result<> add(const Source& source);
    [[nodiscard]] Result<> addStream(const Source& source, const NewEntry::Stream& stream);
    void announce(std::vector<Source> next) { queue_.announce(std::move(next)); }
    void expectEntries(std::size_t count) {
        expected_ += count;
        progress_.expect(expected_, 0);
    }
    [[nodiscard]] Result<> close();

  private:
    // Gives the next chunk of an entry.
    using Feed = std::function<Result<CompressedChunk>()>;

    // Leaves nothing of the entry in the archive unless it is a whole one. Without a feed it has no
    // data; with an endless one its size is not known ahead.
    [[nodiscard]] Result<> addFound(const Source& source,
                                    const struct stat& found,
                                    const Feed& next,
                                    bool isEndless);
    // Puts the name in its place that the entry gets.
    [[nodiscard]] Result<> settleName(std::string& name, bool isFolder);
    // Writes the entry's header and data; fills in what becomes known by that.
    [[nodiscard]] Result<> writeEntry(format::EntryRecord& record,
                                      const Feed& next,
                                      bool isEndless);
    [[nodiscard]] Result<> writeHeader(const format::EntryRecord& record);
    // All chunks but the first, and what ends the data.
    [[nodiscard]] Result<> writeRest(format::EntryRecord& record,
                                     const Feed& next,
                                     Encryptor* encryptor);
    [[nodiscard]] Result<CompressedChunk> take(const Feed& next, const format::EntryRecord& record);

    ArchiveOutput output_;
    const WriterOptions options_;
    ProgressTeller progress_;
    std::size_t expected_ = 0;
    DirectoryWriter directory_;
    TakenNames names_;
    Warnings warnings_;
    std::vector<std::uint8_t> header_;
    bool closed_ = false;
    // Of closing, which tells nothing else when memory ends it.
    Result<> outcome_ = failure(ErrorCode::kOutOfMemory);
    const unsigned threadCount_;
    OutputBuffers buffers_;  // before what holds some of them
    CompressionQueue queue_;
    CompressionThreads threads_;
};

Result<> ArchiveWriter::State::add(const Source& source) {
    auto opened = queue_.begin(source);
    const AtExit leave([this] { queue_.end(); });
    const Feed fromQueue = [this] { return queue_.takeChunk(); };
    Result<> result =
        opened ? addFound(source, opened->status, opened->chunks > 0 ? fromQueue : Feed(), false)
               : passOn(opened);
    return std::move(result).map_error(
        [&source](Error&& error) { return std::move(error).about(source.name, 0); });
}

Result<> ArchiveWriter::State::addStream(const Source& source, const NewEntry::Stream& stream) {
    StreamPieces pieces(stream);
    ChunkCompressor compressor(buffers_);
    const struct stat found = SourceFile::ofMemory(EntryType::kFile, nullptr).status();
    const Feed compressed = [&]() -> Result<CompressedChunk> {
        auto piece = pieces.next();
        if (!piece) {
            return passOn(piece);
        }
        piece->stored = source.isStored(found);
        return compressor.compress(*piece, source.options);
    };
    return addFound(source, found, compressed, true).map_error([&source](Error&& error) {
        return std::move(error).about(source.name, 0);
    });
}

Result<> ArchiveWriter::State::settleName(std::string& name, bool isFolder) {
    if (options_.sameNames == SameNames::kKeep || names_.isFree(name, isFolder)) {
        return {};
    }
    if (options_.sameNames == SameNames::kRefuse) {
        return failure(ErrorCode::kConflictingNames);
    }
    name = names_.freeName(name, isFolder);
    return {};
}

Result<> ArchiveWriter::State::addFound(const Source& source,
                                        const struct stat& found,
                                        const Feed& next,
                                        bool isEndless) {
    // What has no data asks nowhere else.
    if (options_.stop.stop_requested()) {
        return failure(ErrorCode::kCancelled);
    }
    auto name = portableName(source.name);
    if (!name || !areInRange(source.options)) {
        return failure(ErrorCode::kInvalidArgument);
    }
    const bool isFolder = S_ISDIR(found.st_mode);
    const bool isPortable = *name == source.name;
    const std::string wanted = *name;
    if (auto settled = settleName(*name, isFolder); !settled) {
        return settled;
    }
    const bool isRenamed = *name != wanted;
    auto record = recordOf(*std::move(name), source, found, options_.reproducible);
    record.localHeaderOffset = output_.position();
    if (record.name.size() > format::kMax16) {
        return failure(ErrorCode::kInvalidArgument);
    }
    bool isWhole = false;
    const AtExit takeBack([&] {
        if (!isWhole) {
            output_.rewind(record.localHeaderOffset);
        }
    });
    auto written = next ? writeEntry(record, next, isEndless) : writeHeader(record);
    if (!written) {
        return written;
    }
    if (!isPortable) {
        warnings_.add(WarningCode::kNameMadePortable, source.name, record.localHeaderOffset);
    }
    if (isRenamed) {
        warnings_.add(WarningCode::kRenamed, source.name, record.localHeaderOffset);
    }
    directory_.reserve(record);
    if (options_.sameNames != SameNames::kKeep) {
        names_.add(record.name, isFolder);
    }
    // From here on no memory is asked for that there might not be.
    directory_.addReserved();
    isWhole = true;
    progress_.addEntry(source.name);
    return {};
}

Result<CompressedChunk> ArchiveWriter::State::take(const Feed& next,
                                                   const format::EntryRecord& record) {
    if (options_.stop.stop_requested()) {
        return failure(ErrorCode::kCancelled);
    }
    auto chunk = next();
    if (chunk) {
        progress_.addBytes(chunk->uncompressedSize, record.name);
    }
    return chunk;
}

Result<> ArchiveWriter::State::writeEntry(format::EntryRecord& record,
                                          const Feed& next,
                                          bool isEndless) {
    auto first = take(next, record);
    if (!first) {
        return passOn(first);
    }
    const std::unique_ptr<Encryptor> encryptor = std::move(first->encryptor);
    std::vector<std::uint8_t> before;
    if (encryptor) {
        auto made = encryptor->header(format::upperByteOfDosTime(record));
        if (!made) {
            return passOn(made);
        }
        before = *std::move(made);
        record.compressedSize = before.size();
    }
    addTo(record, *first, encryptor.get());
    std::vector<std::uint8_t> after;
    if (first->last) {
        after = endOf(record, encryptor.get());
    }
    if (!first->last && isEndless) {
        record.zip64Sizes = true;
    }
    // What is not known yet is told behind the data where the header cannot be mended.
    const bool isHollow = !first->last && !output_.canOverwrite();
    record.described = record.described || isHollow;
    auto written = writeHeader(isHollow ? hollow(record) : record);
    for (const ByteView bytes : {ByteView(before), ByteView(first->data())}) {
        written = written ? output_.append(bytes) : written;
    }
    if (!written || first->last) {
        return written ? output_.append(after) : written;
    }
    if (written = writeRest(record, next, encryptor.get()); !written || isHollow) {
        return written;
    }
    // The header again, now that its values are known.
    header_.clear();
    format::appendLocalFileHeader(header_, record);
    return output_.overwrite(record.localHeaderOffset, header_);
}

Result<> ArchiveWriter::State::writeHeader(const format::EntryRecord& record) {
    header_.clear();
    format::appendLocalFileHeader(header_, record);
    return output_.append(header_);
}

Result<> ArchiveWriter::State::writeRest(format::EntryRecord& record,
                                         const Feed& next,
                                         Encryptor* encryptor) {
    for (bool ended = false; !ended;) {
        auto chunk = take(next, record);
        if (!chunk) {
            return passOn(chunk);
        }
        addTo(record, *chunk, encryptor);
        if (auto written = output_.append(chunk->data()); !written) {
            return written;
        }
        ended = chunk->last;
    }
    return output_.append(endOf(record, encryptor));
}

Result<> ArchiveWriter::State::close() {
    closed_ = true;
    threads_.stop();
    auto written = directory_.writeTo(output_, options_.comment);
    written = written ? output_.close() : written;
    if (written) {
        progress_.finish();
    }
    outcome_ = written;
    return written;
}

Result<std::unique_ptr<ArchiveWriter>> ArchiveWriter::create(const std::filesystem::path& path,
                                                             WriterOptions options) {
    auto file = PendingFile::create(
        path, options.replace ? PendingFile::Existing::kReplace : PendingFile::Existing::kRefuse);
    if (!file) {
        return passOn(file);
    }
    auto status = file->file().status();
    if (!status) {
        return passOn(status);
    }
    return begin(ArchiveOutput(std::move(*file)),
                 {.device = status->st_dev, .inode = status->st_ino},
                 std::move(options));
}

Result<std::unique_ptr<ArchiveWriter>> ArchiveWriter::create(std::unique_ptr<ByteOutput> output,
                                                             const FileIdentity& identity,
                                                             WriterOptions options) {
    return begin(ArchiveOutput(std::move(output)), identity, std::move(options));
}

Result<std::unique_ptr<ArchiveWriter>> ArchiveWriter::begin(ArchiveOutput output,
                                                            const FileIdentity& identity,
                                                            WriterOptions options) {
    if (options.comment.size() > format::kMax16 || !format::isUtf8(options.comment)) {
        return failure(ErrorCode::kInvalidArgument);
    }
    const unsigned threads =
        options.threads != 0 ? options.threads : std::thread::hardware_concurrency();
    auto state = std::make_unique<State>(
        std::move(output), std::clamp(threads, 1U, kMostThreads), std::move(options));
    if (auto started = state->start(identity); !started) {
        return passOn(started);
    }
    return std::unique_ptr<ArchiveWriter>(new ArchiveWriter(std::move(state)));
}

ArchiveWriter::ArchiveWriter(std::unique_ptr<State> state) : state_(std::move(state)) {}

ArchiveWriter::~ArchiveWriter() = default;

Result<> ArchiveWriter::addEntry(const Source& source) {
    if (state_->isClosed()) {
        return failure(ErrorCode::kInvalidArgument);
    }
    return state_->add(source);
}

Result<> ArchiveWriter::addStream(const Source& source, const NewEntry::Stream& stream) {
    if (state_->isClosed()) {
        return failure(ErrorCode::kInvalidArgument);
    }
    return state_->addStream(source, stream);
}

void ArchiveWriter::compressAhead(std::vector<Source> next) {
    if (!state_->isClosed()) {
        state_->announce(std::move(next));
    }
}

void ArchiveWriter::expectEntries(std::size_t count) {
    state_->expectEntries(count);
}

const Warnings& ArchiveWriter::warnings() const {
    return state_->warnings();
}

Result<> ArchiveWriter::close() {
    return state_->isClosed() ? state_->outcome() : state_->close();
}

}  // namespace pellumar::archive
