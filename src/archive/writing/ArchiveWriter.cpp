#include "archive/writing/ArchiveWriter.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "archive/base/Crc32.h"
#include "archive/codecs/Encryptor.h"
#include "archive/format/EntryRecord.h"
#include "archive/format/ZipFormat.h"
#include "archive/writing/ArchiveOutput.h"
#include "archive/writing/CentralDirectory.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/CompressionThreads.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/EntryPath.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kMostThreads = 8;

// What may lie ready or be under way at once: a chunk for each thread, and some that wait. With two
// threads all that the writer holds stays under 24 MiB, with eight under 48.
constexpr std::size_t kChunksWaiting = 6;

constexpr std::size_t kSmallestRead = 4UL * 1024;
constexpr std::size_t kLargestRead = 1024UL * 1024;

std::size_t clampedReadSize(std::size_t bufferSize) {
    return std::clamp(bufferSize, kSmallestRead, kLargestRead);
}

// `opened` is what the source was found to be.
format::EntryRecord recordOf(std::string name,
                             const ArchiveWriter::Source& source,
                             const CompressionQueue::Opened& opened,
                             std::uint64_t offset) {
    format::EntryRecord record;
    record.name = std::move(name);
    record.unixMode = opened.status.st_mode;
    record.modified = opened.status.st_mtim;
    record.localHeaderOffset = offset;
    if (S_ISDIR(opened.status.st_mode)) {
        record.method = format::kMethodStored;
        if (record.name.back() != '/') {
            record.name += '/';
        }
    } else {
        record.method = format::kMethodDeflate;
        record.encrypted = source.options.password != nullptr;
        record.aesStrength =
            record.encrypted ? aesStrengthOf(source.options.encryption) : std::uint8_t{0};
        // Before it is read the checksum is not known, by which the password would be checked else.
        record.described = record.encrypted && record.aesStrength == 0;
        record.zip64Sizes =
            format::needsZip64Sizes(static_cast<std::uint64_t>(opened.status.st_size));
    }
    return record;
}

// Takes the chunk for the entry's next, encrypted first where there is something to do so.
void take(CompressedChunk& chunk, Encryptor* encryptor, format::EntryRecord& record) {
    if (encryptor != nullptr) {
        encryptor->encrypt(chunk.data());
    }
    record.crc32 = crc32Combine(record.crc32, chunk.crc32, chunk.uncompressedSize);
    record.compressedSize += chunk.size;
    record.uncompressedSize += chunk.uncompressedSize;
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

ArchiveWriter::Source::Source(const EntrySource& source)
    : Source(source.path, source.base / source.path) {
    options.password = source.password;
    options.encryption = source.encryption;
}

bool operator==(const ArchiveWriter::Source& one, const ArchiveWriter::Source& other) {
    return one.name == other.name && one.file == other.file && one.linkAsLink == other.linkAsLink &&
           one.memory == other.memory && one.memoryType == other.memoryType &&
           one.options.level == other.options.level &&
           one.options.password == other.options.password &&
           one.options.encryption == other.options.encryption;
}

class ArchiveWriter::State {
  public:
    State(PendingFile file, unsigned threads)
        : output_(std::move(file)),
          threadCount_(threads),
          buffers_(DeflateCompressor::kMostOutput),
          queue_(DeflateCompressor::kChunkSize,
                 buffers_.size(),
                 buffers_.size() * (threads + kChunksWaiting)) {}

    [[nodiscard]] Result<> start(const FileIdentity& archive) {
        return threads_.start(threadCount_, queue_, buffers_, archive);
    }

    [[nodiscard]] bool isClosed() const { return closed_; }
    [[nodiscard]] const Warnings& warnings() const { return warnings_; }
    [[nodiscard]] Result<> add(const Source& source, std::size_t readSize);
    void announce(std::vector<Source> next, std::size_t readSize) {
        queue_.announce(std::move(next), readSize);
    }
    [[nodiscard]] Result<> close();

  private:
    // Of the queue's current entry: leaves nothing of it in the archive unless it is a whole one.
    [[nodiscard]] Result<> addOpened(const Source& source, const CompressionQueue::Opened& opened);
    // Writes the current entry's header and data; fills in what becomes known by that.
    [[nodiscard]] Result<> writeEntry(format::EntryRecord& record, std::uint64_t chunks);
    [[nodiscard]] Result<> writeHeader(const format::EntryRecord& record);
    [[nodiscard]] Result<> writeChunks(format::EntryRecord& record,
                                       std::uint64_t chunks,
                                       Encryptor* encryptor);

    ArchiveOutput output_;
    CentralDirectory directory_;
    Warnings warnings_;
    std::vector<std::uint8_t> header_;
    bool closed_ = false;
    const unsigned threadCount_;
    OutputBuffers buffers_;  // before what holds some of them
    CompressionQueue queue_;
    CompressionThreads threads_;
};

Result<> ArchiveWriter::State::add(const Source& source, std::size_t readSize) {
    auto opened = queue_.begin(source, readSize);
    const AtExit leave([this] { queue_.end(); });
    Result<> result = opened ? addOpened(source, *opened) : passOn(opened);
    return std::move(result).map_error(
        [&source](Error&& error) { return std::move(error).about(source.name, 0); });
}

Result<> ArchiveWriter::State::addOpened(const Source& source,
                                         const CompressionQueue::Opened& opened) {
    auto name = portableName(source.name);
    if (!name) {
        return failure(ErrorCode::kInvalidArgument);
    }
    const bool isOwnName = *name == source.name;
    auto record = recordOf(*std::move(name), source, opened, output_.position());
    if (record.name.size() > format::kMax16) {
        return failure(ErrorCode::kInvalidArgument);
    }
    bool isWhole = false;
    const AtExit takeBack([&] {
        if (!isWhole) {
            output_.rewind(record.localHeaderOffset);
        }
    });
    auto written = writeEntry(record, opened.chunks);
    if (written) {
        directory_.add(record);
        isWhole = true;
        if (!isOwnName) {
            warnings_.add(WarningCode::kNameMadePortable, source.name, record.localHeaderOffset);
        }
    }
    return written;
}

Result<> ArchiveWriter::State::writeEntry(format::EntryRecord& record, std::uint64_t chunks) {
    if (chunks == 0) {
        return writeHeader(record);
    }
    auto first = queue_.takeChunk();
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
    take(*first, encryptor.get(), record);
    std::vector<std::uint8_t> after;
    if (chunks == 1) {
        after = endOf(record, encryptor.get());
    }
    auto written = writeHeader(record);
    for (const ByteView bytes : {ByteView(before), ByteView(first->data())}) {
        written = written ? output_.append(bytes) : written;
    }
    if (!written || chunks == 1) {
        return written ? output_.append(after) : written;
    }
    written = writeChunks(record, chunks - 1, encryptor.get());
    written = written ? output_.append(endOf(record, encryptor.get())) : written;
    if (!written) {
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

Result<> ArchiveWriter::State::writeChunks(format::EntryRecord& record,
                                           std::uint64_t chunks,
                                           Encryptor* encryptor) {
    for (std::uint64_t i = 0; i < chunks; ++i) {
        auto chunk = queue_.takeChunk();
        if (!chunk) {
            return passOn(chunk);
        }
        take(*chunk, encryptor, record);
        if (auto written = output_.append(chunk->data()); !written) {
            return written;
        }
    }
    return {};
}

Result<> ArchiveWriter::State::close() {
    closed_ = true;
    threads_.stop();
    auto written = directory_.writeTo(output_);
    return written ? output_.close() : written;
}

Result<std::unique_ptr<ArchiveWriter>> ArchiveWriter::create(const std::filesystem::path& path,
                                                             PendingFile::Existing existing,
                                                             unsigned threads) {
    auto file = PendingFile::create(path, existing);
    if (!file) {
        return passOn(file);
    }
    auto status = file->file().status();
    if (!status) {
        return passOn(status);
    }
    if (threads == 0) {
        threads = std::thread::hardware_concurrency();
    }
    auto state = std::make_unique<State>(std::move(*file), std::clamp(threads, 1U, kMostThreads));
    auto started = state->start({.device = status->st_dev, .inode = status->st_ino});
    if (!started) {
        return passOn(started);
    }
    return std::unique_ptr<ArchiveWriter>(new ArchiveWriter(std::move(state)));
}

ArchiveWriter::ArchiveWriter(std::unique_ptr<State> state) : state_(std::move(state)) {}

ArchiveWriter::~ArchiveWriter() = default;

Result<> ArchiveWriter::addEntry(const Source& source, std::size_t bufferSize) {
    if (state_->isClosed()) {
        return failure(ErrorCode::kInvalidArgument);
    }
    return state_->add(source, clampedReadSize(bufferSize));
}

void ArchiveWriter::compressAhead(std::vector<Source> next, std::size_t bufferSize) {
    if (!state_->isClosed()) {
        state_->announce(std::move(next), clampedReadSize(bufferSize));
    }
}

const Warnings& ArchiveWriter::warnings() const {
    return state_->warnings();
}

Result<> ArchiveWriter::close() {
    return state_->isClosed() ? Result<>() : state_->close();
}

}  // namespace pellumar::archive
