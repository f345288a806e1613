#include "archive/reading/Extraction.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "archive/base/LinkSafety.h"
#include "archive/base/ProgressTeller.h"
#include "archive/reading/BackgroundSink.h"
#include "archive/reading/Confinement.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/EntryReader.h"
#include "archive/reading/ExtractionPlan.h"
#include "archive/reading/FileSink.h"
#include "archive/reading/FolderMaker.h"
#include "archive/reading/ReaderThreads.h"
#include "archive/reading/SectionedExtraction.h"
#include "archive/reading/TargetSink.h"
#include "archive/reading/WatchedSink.h"

namespace pellumar::archive {

namespace {

// From this size on writing behind pays for another thread.
constexpr std::uint64_t kGiant = 16UL * 1024 * 1024;
// How many entries a thread checks before it takes the next ones.
constexpr std::size_t kEntriesInCheck = 1024;
// Local headers that are nearer than this are read together with what lies between them.
constexpr std::uint64_t kNear = 16UL * 1024;
// Up to where it is worth to look ahead for what can be read together.
constexpr std::uint64_t kFarEnough = 256UL * 1024;

// Tells of entries that are read one after another how far they reach without a gap.
class Run {
  public:
    // The end of the run that begins at `position`. `partAt` gives the part of the file, as offset
    // and end, that is needed at a position below `end`.
    template <typename PartAt>
    std::uint64_t endFrom(std::size_t position, std::size_t end, PartAt partAt) {
        if (position >= next_) {
            const auto [start, firstEnd] = partAt(position);
            until_ = firstEnd;
            for (next_ = position + 1; next_ < end && until_ - start < kFarEnough; ++next_) {
                const auto [offset, partEnd] = partAt(next_);
                if (offset < until_ || offset - until_ > kNear) {
                    break;
                }
                until_ = partEnd;
            }
        }
        return until_;
    }

  private:
    std::size_t next_ = 0;  // the first position behind the run
    std::uint64_t until_ = 0;
};

// One extraction: its plan, and the state that its threads share.
class Extraction {
  public:
    Extraction(const ByteSource& source,
               const EntryTable& entries,
               const DestinationTree& tree,
               ExtractionPlan plan,
               const ExtractionOptions& options)
        : entries_(entries),
          tree_(tree),
          plan_(std::move(plan)),
          folders_(tree),
          options_(options),
          progress_(options.progress),
          isWatched_(options.progress || options.stop.stop_possible() ||
                     options.limits.bytes != ExtractionLimits::kNone),
          threads_(source, options),
          divided_(source, options, threads_, progress_),
          links_([this](std::string_view path) { return plan_.holdsFolder(path); },
                 options.existing == ExistingFiles::kRefuse) {}

    Result<ExtractionReport> run() {
        if (auto affordable = checkCost(); !affordable) {
            return passOn(affordable);
        }
        progress_.expect(plan_.nodes(), plan_.bytes);
        if (auto checked = checkEntries(); !checked) {
            return passOn(checked);
        }
        // Charsets, ciphers and the time zone are read from files, which is done by now.
        return runConfined(tree_.descriptor(), [this] { return make(); });
    }

  private:
    // What decodes the entries' data and writes.
    Result<ExtractionReport> make() {
        if (auto checked = checkLinks(); !checked) {
            return passOn(checked);
        }
        if (auto made = folders_.makeAll(plan_.folders); !made) {
            return passOn(made);
        }
        extractDivided();
        onThreads(plan_.tasks.size(), [this](EntryReader& reader) { extractFiles(reader); });
        if (firstError_) {
            return Failure(std::move(*firstError_));
        }
        ExtractionReport report{.entries = plan_.nodes(),
                                .bytes = plan_.bytes - skippedBytes_,
                                .skipped = skipped_,
                                .renamed = renamed_};
        if (auto made = folders_.makeLinks(plan_.links, links_, options_.existing, report); !made) {
            return passOn(made);
        }
        progress_.addEntry({}, plan_.folders.size() + plan_.links.size());
        folders_.restoreMetadata(plan_.folders, plan_.warnings);
        if (options_.sync && ::syncfs(tree_.descriptor()) != 0) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
        report.entries -= report.skipped;
        report.warnings = std::move(plan_.warnings);
        progress_.finish();
        return report;
    }

    static Failure unsafe(const EntryData& link) {
        return Failure(Error{.code = ErrorCode::kUnsafeLink,
                             .entry = std::string(link.entry.path),
                             .offset = link.entry.localHeaderOffset});
    }

    // What the archive would take, of the disk and of what the caller allows.
    Result<> checkCost() const {
        const ExtractionLimits& limits = options_.limits;
        if (plan_.nodes() > limits.entries || plan_.bytes > limits.bytes) {
            return failure(ErrorCode::kOverLimit);
        }
        for (const EntryData* file : plan_.files) {
            if (isOverRatio(file->entry, limits.ratio)) {
                return Failure(Error{.code = ErrorCode::kOverLimit,
                                     .entry = std::string(file->entry.path),
                                     .offset = file->entry.localHeaderOffset});
            }
        }
        // What stands there already, and so takes no room more, only the writing shows.
        if (options_.existing == ExistingFiles::kSkip ||
            options_.existing == ExistingFiles::kOverwrite) {
            return {};
        }
        const DestinationTree::Room room = tree_.room();
        if (const std::uint64_t needed = plan_.bytesOnDisk(room.blockSize); needed > room.bytes) {
            return Failure(Error{.code = ErrorCode::kTooLarge,
                                 .entry = {},
                                 .bytesNeeded = needed,
                                 .bytesFree = room.free});
        }
        return plan_.nodes() > room.nodes ? failure(ErrorCode::kTooLarge) : Result<>();
    }

    // All that can be wrong with an entry short of its data and a link's target, before anything is
    // made.
    Result<> checkEntries() {
        const std::size_t pieces = (entries_.size() + kEntriesInCheck - 1) / kEntriesInCheck;
        onThreads(pieces, [this](EntryReader& reader) { checkHeaders(reader); });
        if (firstError_) {
            return Failure(std::move(*firstError_));
        }
        warnOfUnlisted();
        return {};
    }

    // What is taken is checked to its end, so that the error that comes out is always the first.
    void checkHeaders(EntryReader& reader) {
        const EntryTable& entries = entries_;
        const auto headerAt = [&entries](std::size_t i) {
            const std::uint64_t offset = entries[i].entry.localHeaderOffset;
            return std::pair(offset, std::min(entries[i].slotEnd, offset + kNear));
        };
        while (!failed_.load(std::memory_order_relaxed)) {
            const std::size_t first =
                nextCheck_.fetch_add(kEntriesInCheck, std::memory_order_relaxed);
            const std::size_t end = std::min(first + kEntriesInCheck, entries.size());
            if (first >= end) {
                return;
            }
            Run run;
            for (std::size_t i = first; i < end; ++i) {
                auto checked = reader.checkHeader(entries[i], run.endFrom(i, end, headerAt));
                if (checked && isToUnlock(entries[i])) {
                    if (auto unlocked = reader.checkPassword(entries[i]); !unlocked) {
                        checked = passOn(unlocked);
                    }
                }
                if (!checked) {
                    report(&entries[i], std::move(checked.error()));
                    return;
                }
                if (*checked && !entries.isNameless(**checked)) {
                    const std::lock_guard lock(mutex_);
                    unlisted_.push_back(**checked);
                }
            }
        }
    }

    // Whether the password is to be tried on the entry before anything is written. To try one takes
    // a millisecond with AES, so after some that fit it is believed.
    [[nodiscard]] bool isToUnlock(const EntryData& data) {
        constexpr std::size_t kTried = 64;
        return data.encryption && data.entry.type != EntryType::kFolder &&
               (options_.password == nullptr ||
                tried_.fetch_add(1, std::memory_order_relaxed) < kTried);
    }

    // In the archive's order, whichever thread was first.
    void warnOfUnlisted() {
        std::sort(unlisted_.begin(), unlisted_.end());
        for (const std::uint64_t offset : unlisted_) {
            plan_.warnings.add(WarningCode::kUnlistedEntry, {}, offset);
        }
    }

    // Links are small: their targets are read and judged.
    Result<> checkLinks() {
        if (plan_.links.empty()) {
            return {};
        }
        auto reader = threads_.readerOf(0);
        if (!reader) {
            return passOn(reader);
        }
        for (const EntryData* link : plan_.links) {
            TargetSink sink;
            if (auto read = (*reader)->read(*link, options_.skipChecksum, sink); !read) {
                return read;
            }
            if (!links_.add(link->entry.path, sink.take())) {
                return unsafe(*link);
            }
        }
        for (const EntryData* link : plan_.links) {
            if (!links_.isSafe(link->entry.path)) {
                return unsafe(*link);
            }
        }
        return {};
    }

    template <typename Work>
    void onThreads(std::size_t most, const Work& work) {
        if (auto ran = threads_.run(most, work); !ran) {
            report(nullptr, std::move(ran.error()));
        }
    }

    // Takes the tasks out of the plan that all threads can do together. What they cannot stays.
    void extractDivided() {
        FolderCursor cursor(tree_);
        std::erase_if(plan_.tasks, [&](const ExtractionPlan::Task& task) {
            const EntryData& data = *plan_.files[task.first];
            const ByteView field = entries_.sectionsOf(data);
            if (failed_ || task.count != 1 || !divided_.isFor(data, field)) {
                return false;
            }
            auto extracted = extractDivided(data, field, cursor);
            if (!extracted) {
                report(&data,
                       std::move(extracted.error())
                           .about(data.entry.path, data.entry.localHeaderOffset));
            }
            return extracted && *extracted;
        });
    }

    Result<bool> extractDivided(const EntryData& data, ByteView field, FolderCursor& cursor) {
        auto folder = cursor.enterParentOf(data.entry.path);
        if (!folder) {
            return passOn(folder);
        }
        if (options_.existing == ExistingFiles::kSkip && isThere(*folder, data.entry)) {
            return false;
        }
        FileSink file(*folder, data.entry, options_.existing);
        auto extracted = divided_.extract(data, field, file);
        if (!extracted || !*extracted) {
            return extracted;
        }
        auto finished = finish(file, data);
        return finished ? Result<bool>(true) : passOn(finished);
    }

    void extractFiles(EntryReader& reader) {
        const auto slotAt = [this](std::size_t i) {
            const EntryData& data = *plan_.files[i];
            return std::pair(data.entry.localHeaderOffset, data.slotEnd);
        };
        FolderCursor cursor(tree_);
        for (;;) {
            const std::size_t index = nextTask_.fetch_add(1, std::memory_order_relaxed);
            if (index >= plan_.tasks.size()) {
                return;
            }
            const ExtractionPlan::Task task = plan_.tasks[index];
            const std::size_t end = task.first + task.count;
            const bool inBackground = isLonelyGiant(index);
            Run run;
            for (std::size_t i = task.first; i < end; ++i) {
                if (failed_.load(std::memory_order_relaxed)) {
                    return;
                }
                const EntryData& data = *plan_.files[i];
                if (options_.stop.stop_requested()) {
                    report(&data, failure(ErrorCode::kCancelled).value());
                    return;
                }
                const Reading reading{.soonUntil = run.endFrom(i, end, slotAt),
                                      .inBackground = inBackground};
                if (auto extracted = extract(data, reader, cursor, reading); !extracted) {
                    report(&data, std::move(extracted.error()));
                    return;
                }
            }
            completeFolder(task, cursor);
        }
    }

    // The folder of a task that was all it waited for is the last to be entered, so this is cheap.
    void completeFolder(const ExtractionPlan::Task& task, FolderCursor& cursor) {
        if (task.folder == ExtractionPlan::kTop) {
            return;
        }
        const ExtractionPlan::Folder& folder = plan_.folders[task.folder];
        if (folder.data == nullptr || folder.filledByMany) {
            return;
        }
        if (auto entered = cursor.enterParentOf(plan_.files[task.first]->entry.path)) {
            folders_.restoreEarly(task.folder, folder.data->entry, *entered);
        }
    }

    struct Reading {
        std::uint64_t soonUntil = 0;
        bool inBackground = false;
    };

    Result<> extract(const EntryData& data,
                     EntryReader& reader,
                     FolderCursor& cursor,
                     const Reading& reading) {
        const Entry& entry = data.entry;
        auto folder = cursor.enterParentOf(entry.path);
        if (!folder) {
            return Failure(std::move(folder.error()).about(entry.path, entry.localHeaderOffset));
        }
        if (options_.existing == ExistingFiles::kSkip && isThere(*folder, entry)) {
            skipped_.fetch_add(1, std::memory_order_relaxed);
            skippedBytes_.fetch_add(entry.uncompressedSize, std::memory_order_relaxed);
            progress_.addBytes(entry.uncompressedSize, entry.path);
            progress_.addEntry(entry.path);
            return {};
        }
        std::unique_lock<std::mutex> oneLargeWindow(largeWindow_, std::defer_lock);
        if (needsLargeWindow(entry.method, entry.uncompressedSize)) {
            oneLargeWindow.lock();
        }
        FileSink file(*folder, entry, options_.existing);
        if (auto read = readInto(file, data, reader, reading); !read) {
            return read;
        }
        return finish(file, data);
    }

    Result<> finish(FileSink& file, const EntryData& data) {
        const Entry& entry = data.entry;
        bool restored = true;
        if (auto finished = file.finish(&restored); !finished) {
            return Failure(std::move(finished.error()).about(entry.path, entry.localHeaderOffset));
        }
        renamed_.fetch_add(file.isRenamed() ? 1 : 0, std::memory_order_relaxed);
        progress_.addEntry(entry.path);
        if (!restored) {
            const std::lock_guard lock(mutex_);
            plan_.warnings.add(
                WarningCode::kMetadataNotRestored, entry.path, entry.localHeaderOffset);
        }
        return {};
    }

    // Whether the task is one of the last giants, so that a core has nothing better to do than to
    // write what this one unpacks.
    [[nodiscard]] bool isLonelyGiant(std::size_t task) const {
        const std::size_t later = task + threads_.count() - 1;
        const auto isGiant = [this](std::size_t index) {
            return plan_.files[plan_.tasks[index].first]->entry.uncompressedSize >= kGiant;
        };
        return threads_.count() > 1 && isGiant(task) &&
               (later >= plan_.tasks.size() || !isGiant(later));
    }

    static bool isThere(int folder, const Entry& entry) {
        struct stat status {};
        return ::fstatat(folder,
                         std::string(lastComponent(entry.path)).c_str(),
                         &status,
                         AT_SYMLINK_NOFOLLOW) == 0;
    }

    Result<> readInto(FileSink& file,
                      const EntryData& data,
                      EntryReader& reader,
                      const Reading& reading) {
        if (!isWatched_) {
            return readIntoSink(file, data, reader, reading);
        }
        WatchedSink watched(file, data.entry, options_, progress_);
        return readIntoSink(watched, data, reader, reading);
    }

    Result<> readIntoSink(DataSink& file,
                          const EntryData& data,
                          EntryReader& reader,
                          const Reading& reading) {
        if (!reading.inBackground) {
            return reader.read(data, options_.skipChecksum, file, reading.soonUntil);
        }
        BackgroundSink background(file);
        if (auto read = reader.read(data, options_.skipChecksum, background); !read) {
            return read;
        }
        auto finished = background.finish();
        if (!finished) {
            return Failure(
                std::move(finished.error()).about(data.entry.path, data.entry.localHeaderOffset));
        }
        return {};
    }

    // Remembers the error of the entry that stands first in the directory.
    void report(const EntryData* data, Error error) {
        const std::lock_guard lock(mutex_);
        if (!firstError_ || data < firstErrorEntry_) {
            firstError_ = std::move(error);
            firstErrorEntry_ = data;
        }
        failed_.store(true, std::memory_order_relaxed);
    }

    const EntryTable& entries_;
    const DestinationTree& tree_;
    ExtractionPlan plan_;
    FolderMaker folders_;
    const ExtractionOptions& options_;
    ProgressTeller progress_;
    const bool isWatched_;
    ReaderThreads threads_;
    SectionedExtraction divided_;
    LinkSafety links_;

    std::atomic<std::size_t> nextCheck_ = 0;
    std::atomic<std::size_t> nextTask_ = 0;
    std::atomic<std::size_t> tried_ = 0;
    std::atomic<std::size_t> skipped_ = 0;
    std::atomic<std::uint64_t> skippedBytes_ = 0;
    std::atomic<std::size_t> renamed_ = 0;
    std::atomic<bool> failed_ = false;
    std::mutex largeWindow_;
    std::mutex mutex_;  // guards what follows, and the plan's warnings
    std::vector<std::uint64_t> unlisted_;
    std::optional<Error> firstError_;
    const EntryData* firstErrorEntry_ = nullptr;
};

}  // namespace

Result<ExtractionReport> extractInto(const std::filesystem::path& to,
                                     const ByteSource& source,
                                     const EntryTable& entries,
                                     const ExtractionOptions& options) {
    if (auto fault = entries.firstFault()) {
        return Failure(*std::move(fault));
    }
    auto tree = DestinationTree::open(to);
    if (!tree) {
        return passOn(tree);
    }
    std::error_code ignored;
    const std::size_t rootLength = std::filesystem::absolute(to, ignored).native().size();
    // Whoever uses the files afterwards names them from the root: separator and NUL included, that
    // must not exceed PATH_MAX.
    const std::size_t longestPath = PATH_MAX - std::min<std::size_t>(rootLength + 2, PATH_MAX);
    auto plan =
        planExtraction(entries, {.longestName = tree->longestName(), .longestPath = longestPath});
    if (!plan) {
        return passOn(plan);
    }
    return Extraction(source, entries, *tree, std::move(*plan), options).run();
}

}  // namespace pellumar::archive
