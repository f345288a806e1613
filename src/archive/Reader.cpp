#include "archive/Reader.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

#include "archive/base/ProgressTeller.h"
#include "archive/base/WithinMemory.h"
#include "archive/codecs/Decoder.h"
#include "archive/reading/ArchiveReader.h"
#include "archive/reading/EntryReader.h"
#include "archive/reading/Extraction.h"
#include "archive/reading/ReaderThreads.h"
#include "archive/reading/WatchedSink.h"

namespace pellumar::archive {

namespace {

Failure failureOf(ErrorCode code, const Entry& entry) {
    return Failure(
        Error{.code = code, .entry = std::string(entry.path), .offset = entry.localHeaderOffset});
}

bool isOverLimit(const Entry& entry, const ExtractionLimits& limits) {
    return entry.uncompressedSize > limits.bytes || isOverRatio(entry, limits.ratio);
}

bool needsPassword(const EntryData& data) {
    return data.encryption && !data.entry.fault && data.entry.type != EntryType::kFolder;
}

// Where an entry's data goes that is only looked at.
class NoSink final : public DataSink {
  public:
    Result<> write(ByteView /*bytes*/) override { return {}; }
};

class MemorySink final : public DataSink {
  public:
    explicit MemorySink(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    Result<> write(ByteView bytes) override {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return {};
    }

  private:
    std::vector<std::uint8_t>& bytes_;
};

// Hands entries' data to sinks that the caller makes, one after another.
class Handing {
  public:
    Handing(const ArchiveReader& archive,
            const Reader::SinkMaker& sinkFor,
            const ExtractionOptions& options)
        : archive_(archive),
          entries_(archive.entries()),
          sinkFor_(sinkFor),
          options_(options),
          progress_(options.progress) {}

    Result<ExtractionReport> run(std::span<const std::size_t> entries) {
        if (auto allowed = check(entries); !allowed) {
            return passOn(allowed);
        }
        auto reader = EntryReader::create(
            archive_.source(), options_.password, limitsOfEntries(options_.limits, 1));
        if (!reader) {
            return passOn(reader);
        }
        for (const std::size_t index : entries) {
            if (auto handed = hand(index, **reader); !handed) {
                return passOn(handed);
            }
        }
        progress_.finish();
        return std::move(report_);
    }

  private:
    // What the directory shows of all, before the first sink is asked for.
    Result<> check(std::span<const std::size_t> entries) {
        std::uint64_t bytes = 0;
        for (const std::size_t index : entries) {
            if (index >= entries_.size()) {
                return failure(ErrorCode::kInvalidArgument);
            }
            const Entry& entry = entries_[index].entry;
            if (entry.fault) {
                return Failure(entries_.faultOf(index));
            }
            if (isOverLimit(entry, options_.limits) ||
                __builtin_add_overflow(bytes, entry.uncompressedSize, &bytes) ||
                bytes > options_.limits.bytes) {
                return failureOf(ErrorCode::kOverLimit, entry);
            }
        }
        progress_.expect(entries.size(), bytes);
        return entries.size() > options_.limits.entries ? failure(ErrorCode::kOverLimit)
                                                        : Result<>();
    }

    Result<> hand(std::size_t index, EntryReader& reader) {
        const EntryData& data = entries_[index];
        const Entry& entry = data.entry;
        if (options_.stop.stop_requested()) {
            return failureOf(ErrorCode::kCancelled, entry);
        }
        if (entry.type == EntryType::kFolder) {
            return {};
        }
        auto sink = sinkFor_(index);
        if (!sink) {
            return passOn(sink);
        }
        if (*sink == nullptr) {
            ++report_.skipped;
            return {};
        }
        WatchedSink watched(**sink, entry, options_, progress_);
        if (auto read = reader.read(data, options_.skipChecksum, watched); !read) {
            return read;
        }
        ++report_.entries;
        report_.bytes += entry.uncompressedSize;
        progress_.addEntry(entry.path);
        return {};
    }

    const ArchiveReader& archive_;
    const EntryTable& entries_;
    const Reader::SinkMaker& sinkFor_;
    const ExtractionOptions& options_;
    ProgressTeller progress_;
    ExtractionReport report_;
};

// One run of Reader::test.
class ArchiveTest {
  public:
    ArchiveTest(const ArchiveReader& archive, const ExtractionOptions& options)
        : entries_(archive.entries()),
          options_(options),
          progress_(options.progress),
          threads_(archive.source(), options) {}

    Result<std::vector<Error>> run() {
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            bytes += entries_[i].entry.uncompressedSize;
        }
        progress_.expect(entries_.size(), bytes);
        auto ran = threads_.run(entries_.size(), [this](EntryReader& reader) { work(reader); });
        if (!ran) {
            return passOn(ran);
        }
        if (options_.stop.stop_requested()) {
            return failure(ErrorCode::kCancelled);
        }
        progress_.finish();
        std::vector<Error> errors;
        std::sort(found_.begin(), found_.end(), [](const auto& one, const auto& other) {
            return one.first < other.first;
        });
        for (auto& [index, error] : found_) {
            errors.push_back(std::move(error));
        }
        return errors;
    }

  private:
    void work(EntryReader& reader) {
        for (;;) {
            const std::size_t index = next_.fetch_add(1, std::memory_order_relaxed);
            if (index >= entries_.size() || options_.stop.stop_requested()) {
                return;
            }
            auto right = check(index, reader);
            if (!right) {
                const std::lock_guard lock(mutex_);
                found_.emplace_back(index, std::move(right.error()));
            }
            progress_.addEntry(entries_[index].entry.path);
        }
    }

    Result<> check(std::size_t index, EntryReader& reader) {
        const EntryData& data = entries_[index];
        const Entry& entry = data.entry;
        if (entry.fault) {
            return Failure(entries_.faultOf(index));
        }
        if (isOverLimit(entry, options_.limits)) {
            return failureOf(ErrorCode::kOverLimit, entry);
        }
        if (entry.type == EntryType::kFolder) {
            auto checked = reader.checkHeader(data);
            return checked ? Result<>() : passOn(checked);
        }
        std::unique_lock<std::mutex> oneLargeWindow(largeWindow_, std::defer_lock);
        if (needsLargeWindow(entry.method, entry.uncompressedSize)) {
            oneLargeWindow.lock();
        }
        NoSink nowhere;
        WatchedSink watched(nowhere, entry, options_, progress_);
        return reader.read(data, options_.skipChecksum, watched);
    }

    const EntryTable& entries_;
    const ExtractionOptions& options_;
    ProgressTeller progress_;
    ReaderThreads threads_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex largeWindow_;
    std::mutex mutex_;  // guards what follows
    std::vector<std::pair<std::size_t, Error>> found_;
};

// Paths of which the entries are looked for, and those below them.
class Wanted {
  public:
    explicit Wanted(std::span<const std::string_view> paths) {
        for (const std::string_view path : paths) {
            found_.emplace(plain(path), false);
            lengths_.push_back(plain(path).size());
        }
        std::sort(lengths_.begin(), lengths_.end());
        lengths_.erase(std::unique(lengths_.begin(), lengths_.end()), lengths_.end());
    }

    bool covers(std::string_view path) {
        bool isCovered = false;
        // Only what begins as long as something wanted is looked up: a path may be of thousands of
        // folders.
        for (const std::size_t length : lengths_) {
            if (length > path.size()) {
                break;
            }
            if (length < path.size() && path[length] != '/') {
                continue;
            }
            const auto wanted = found_.find(path.substr(0, length));
            if (wanted != found_.end()) {
                wanted->second = true;
                isCovered = true;
            }
        }
        return isCovered;
    }

    [[nodiscard]] bool wasFound(std::string_view path) const { return found_.at(plain(path)); }

  private:
    static std::string_view plain(std::string_view path) {
        while (path.ends_with('/')) {
            path.remove_suffix(1);
        }
        return path;
    }

    std::unordered_map<std::string_view, bool> found_;
    std::vector<std::size_t> lengths_;  // of these paths, each once
};

// The reader that begins with an entry, a file or link; its fault or kOverLimit if it has to be
// refused.
Result<std::unique_ptr<EntryReader>> begun(const ArchiveReader& archive,
                                           std::size_t index,
                                           const ExtractionOptions& options) {
    const EntryTable& entries = archive.entries();
    if (index >= entries.size()) {
        return failure(ErrorCode::kInvalidArgument);
    }
    const EntryData& data = entries[index];
    if (data.entry.fault) {
        return Failure(entries.faultOf(index));
    }
    if (data.entry.type == EntryType::kFolder) {
        return failureOf(ErrorCode::kInvalidArgument, data.entry);
    }
    if (isOverLimit(data.entry, options.limits)) {
        return failureOf(ErrorCode::kOverLimit, data.entry);
    }
    auto reader =
        EntryReader::create(archive.source(), options.password, limitsOfEntries(options.limits, 1));
    if (!reader) {
        return reader;
    }
    if (auto started = (*reader)->begin(data, options.skipChecksum); !started) {
        return passOn(started);
    }
    return reader;
}

}  // namespace

EntryStream::EntryStream(std::unique_ptr<EntryReader> reader) : reader_(std::move(reader)) {}
EntryStream::EntryStream(EntryStream&&) noexcept = default;
EntryStream& EntryStream::operator=(EntryStream&&) noexcept = default;
EntryStream::~EntryStream() = default;

Result<std::size_t> EntryStream::read(MutableBytes buffer) {
    if (error_) {
        return Failure(*error_);
    }
    if (ended_ || buffer.empty()) {
        return 0;
    }
    auto pulled = withinMemory([&] { return reader_->pull(buffer); });
    if (!pulled) {
        error_ = pulled.error();
    } else {
        ended_ = *pulled == 0;
    }
    return pulled;
}

Reader::Reader(std::unique_ptr<const ArchiveReader> archive) : archive_(std::move(archive)) {}
Reader::Reader(Reader&&) noexcept = default;
Reader& Reader::operator=(Reader&&) noexcept = default;
Reader::~Reader() = default;

Result<Reader> Reader::openSource(std::unique_ptr<const ByteSource> source) {
    return withinMemory([&]() -> Result<Reader> {
        auto archive = ArchiveReader::open(std::move(source));
        if (!archive) {
            return passOn(archive);
        }
        return Reader(std::move(*archive));
    });
}

Result<Reader> Reader::open(const std::filesystem::path& path) {
    return withinMemory([&]() -> Result<Reader> {
        auto archive = ArchiveReader::open(path);
        return archive ? Result<Reader>(Reader(std::move(*archive))) : passOn(archive);
    });
}

Result<Reader> Reader::open(File file) {
    return withinMemory([&] {
        auto source = FileSource::of(std::move(file));
        return source ? openSource(std::move(*source)) : Result<Reader>(passOn(source));
    });
}

Result<Reader> Reader::openMemory(ByteView bytes) {
    return withinMemory([&] { return openSource(std::make_unique<MemorySource>(bytes)); });
}

std::size_t Reader::size() const {
    return archive_->entries().size();
}

const Entry& Reader::operator[](std::size_t index) const {
    return archive_->entries()[index].entry;
}

std::optional<std::size_t> Reader::find(std::string_view path) const {
    for (std::size_t i = size(); i-- > 0;) {
        if ((*this)[i].path == path) {
            return i;
        }
    }
    return std::nullopt;
}

Result<std::vector<std::size_t>> Reader::select(std::span<const std::string_view> paths) const {
    return withinMemory([&]() -> Result<std::vector<std::size_t>> {
        Wanted wanted(paths);
        std::vector<std::size_t> selected;
        for (std::size_t i = 0; i < size(); ++i) {
            if (wanted.covers((*this)[i].path)) {
                selected.push_back(i);
            }
        }
        for (const std::string_view path : paths) {
            if (!wanted.wasFound(path)) {
                return Failure(Error{.code = ErrorCode::kNoSuchEntry, .entry = std::string(path)});
            }
        }
        return selected;
    });
}

std::optional<Error> Reader::firstFault() const {
    return archive_->entries().firstFault();
}

const Warnings& Reader::warnings() const {
    return archive_->warnings();
}

std::string_view Reader::comment() const {
    return archive_->comment();
}

Result<> Reader::checkPassword(const Password& password) const {
    return withinMemory([&]() -> Result<> {
        for (std::size_t i = 0; i < size(); ++i) {
            if (needsPassword(archive_->entries()[i])) {
                return tryPassword(password, i);
            }
        }
        return {};
    });
}

Result<> Reader::checkPassword(const Password& password,
                               std::span<const std::size_t> entries) const {
    return withinMemory([&]() -> Result<> {
        for (const std::size_t index : entries) {
            if (index >= size()) {
                return failure(ErrorCode::kInvalidArgument);
            }
            if (needsPassword(archive_->entries()[index])) {
                return tryPassword(password, index);
            }
        }
        return {};
    });
}

Result<> Reader::tryPassword(const Password& password, std::size_t index) const {
    auto reader = EntryReader::create(archive_->source(), &password);
    return reader ? (*reader)->checkPassword(archive_->entries()[index]) : Result<>(passOn(reader));
}

Result<EntryStream> Reader::openEntry(std::size_t index, const ExtractionOptions& options) const {
    return withinMemory([&]() -> Result<EntryStream> {
        auto reader = begun(*archive_, index, options);
        if (!reader) {
            return passOn(reader);
        }
        return EntryStream(std::move(*reader));
    });
}

Result<std::vector<std::uint8_t>> Reader::readEntry(std::size_t index,
                                                    const ExtractionOptions& options) const {
    if (index >= size() || (*this)[index].type == EntryType::kFolder) {
        return failure(ErrorCode::kInvalidArgument);
    }
    std::vector<std::uint8_t> bytes;
    const SinkMaker collect = [&bytes](std::size_t) -> Result<std::unique_ptr<DataSink>> {
        return std::make_unique<MemorySink>(bytes);
    };
    auto done = extractTo(std::span(&index, 1), collect, options);
    if (!done) {
        return passOn(done);
    }
    return bytes;
}

Result<ExtractionReport> Reader::extractAll(const std::filesystem::path& to,
                                            const ExtractionOptions& options) const {
    if (options.stripComponents == 0) {
        return withinMemory(
            [&] { return extractInto(to, archive_->source(), archive_->entries(), options); });
    }
    return withinMemory([&] {
        std::vector<std::size_t> all(size());
        std::iota(all.begin(), all.end(), std::size_t{0});
        return extract(all, to, options);
    });
}

Result<ExtractionReport> Reader::extract(std::span<const std::size_t> entries,
                                         const std::filesystem::path& to,
                                         const ExtractionOptions& options) const {
    return withinMemory([&]() -> Result<ExtractionReport> {
        for (const std::size_t index : entries) {
            if (index >= size()) {
                return failure(ErrorCode::kInvalidArgument);
            }
        }
        return extractInto(to,
                           archive_->source(),
                           archive_->entries().selected(entries, options.stripComponents),
                           options);
    });
}

Result<ExtractionReport> Reader::extractTo(std::span<const std::size_t> entries,
                                           const SinkMaker& sinkFor,
                                           const ExtractionOptions& options) const {
    return withinMemory([&] { return Handing(*archive_, sinkFor, options).run(entries); });
}

Result<std::vector<Error>> Reader::test(const ExtractionOptions& options) const {
    return withinMemory([&] { return ArchiveTest(*archive_, options).run(); });
}

}  // namespace pellumar::archive
