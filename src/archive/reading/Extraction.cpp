#include "archive/reading/Extraction.h"

#include <linux/limits.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "archive/base/WithinMemory.h"
#include "archive/reading/BackgroundSink.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/EntryReader.h"
#include "archive/reading/ExtractionPlan.h"
#include "archive/reading/FileSink.h"
#include "archive/reading/FolderMaker.h"
#include "archive/reading/LinkSafety.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kMostThreads = 8;
// From this size on writing behind pays for another thread.
constexpr std::uint64_t kGiant = 16UL * 1024 * 1024;

// Collects a link's target, which no file system takes longer than PATH_MAX.
class TargetSink final : public DataSink {
  public:
    Result<> write(ByteView bytes) override {
        if (target_.size() + bytes.size() >= PATH_MAX) {
            return failure(ErrorCode::kUnsafeLink);
        }
        target_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return {};
    }

    std::string take() { return std::move(target_); }

  private:
    std::string target_;
};

// One extraction: its plan, and the state that its threads share.
class Extraction {
  public:
    Extraction(const ArchiveReader& archive,
               const DestinationTree& tree,
               ExtractionPlan plan,
               const ExtractionOptions& options)
        : archive_(archive),
          tree_(tree),
          plan_(std::move(plan)),
          options_(options),
          threads_(options.threads != 0
                       ? options.threads
                       : std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads)) {}

    Result<ExtractionResult> run() {
        const DestinationTree::Room room = tree_.room();
        if (plan_.bytesOnDisk(room.blockSize) > room.bytes || plan_.nodes() > room.nodes) {
            return failure(ErrorCode::kTooLarge);
        }
        if (auto checked = checkEntries(); !checked) {
            return passOn(checked);
        }
        FolderMaker folders(tree_);
        if (auto made = folders.makeAll(plan_.folders); !made) {
            return passOn(made);
        }
        extractFiles();
        if (firstError_) {
            return Failure(std::move(*firstError_));
        }
        if (auto made = folders.makeLinks(plan_.links, links_); !made) {
            return passOn(made);
        }
        folders.restoreMetadata(plan_.folders, plan_.warnings);
        return ExtractionResult{
            .entries = plan_.nodes(), .bytes = plan_.bytes, .warnings = std::move(plan_.warnings)};
    }

  private:
    static Failure unsafe(const EntryData& link) {
        return Failure(Error{.code = ErrorCode::kUnsafeLink,
                             .entry = std::string(link.entry.path),
                             .offset = link.entry.localHeaderOffset});
    }

    // All that can be wrong with an entry short of its data, before anything is made.
    Result<> checkEntries() {
        auto reader = EntryReader::create(archive_.file());
        if (!reader) {
            return passOn(reader);
        }
        const EntryTable& entries = archive_.entries();
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (auto checked = (*reader)->checkHeader(entries[i]); !checked) {
                return checked;
            }
        }
        return checkLinks(**reader);
    }

    // Links are small: their targets are read and judged.
    Result<> checkLinks(EntryReader& reader) {
        for (const EntryData* link : plan_.links) {
            TargetSink sink;
            if (auto read = reader.read(*link, options_.skipChecksum, sink); !read) {
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

    void extractFiles() {
        const std::size_t count = std::min<std::size_t>(threads_, plan_.tasks.size());
        std::vector<std::thread> helpers;
        helpers.reserve(count);
        for (std::size_t i = 1; i < count; ++i) {
            try {
                helpers.emplace_back([this] { workWithinMemory(); });
            } catch (const std::system_error&) {
                break;  // fewer threads take longer, no more
            }
        }
        workWithinMemory();
        for (std::thread& helper : helpers) {
            helper.join();
        }
    }

    void workWithinMemory() {
        auto worked = withinMemory([this]() -> Result<> {
            work();
            return {};
        });
        if (!worked) {
            report(nullptr, std::move(worked.error()));
        }
    }

    void work() {
        auto reader = EntryReader::create(archive_.file());
        if (!reader) {
            report(nullptr, std::move(reader.error()));
            return;
        }
        FolderCursor cursor(tree_);
        for (;;) {
            const std::size_t index = nextTask_.fetch_add(1, std::memory_order_relaxed);
            if (index >= plan_.tasks.size()) {
                return;
            }
            const ExtractionPlan::Task task = plan_.tasks[index];
            const bool inBackground = isLonelyGiant(index);
            for (std::size_t i = task.first; i < task.first + task.count; ++i) {
                if (failed_.load(std::memory_order_relaxed)) {
                    return;
                }
                auto extracted = extract(*plan_.files[i], **reader, cursor, inBackground);
                if (!extracted) {
                    report(plan_.files[i], std::move(extracted.error()));
                    return;
                }
            }
        }
    }

    Result<> extract(const EntryData& data,
                     EntryReader& reader,
                     FolderCursor& cursor,
                     bool inBackground) {
        const Entry& entry = data.entry;
        auto folder = cursor.enterParentOf(entry.path);
        if (!folder) {
            return Failure(std::move(folder.error()).about(entry.path, entry.localHeaderOffset));
        }
        std::unique_lock<std::mutex> oneLargeWindow(largeWindow_, std::defer_lock);
        if (needsLargeWindow(entry.method, entry.uncompressedSize)) {
            oneLargeWindow.lock();
        }
        FileSink file(*folder, entry, tree_.umask());
        if (auto read = readInto(file, data, reader, inBackground); !read) {
            return read;
        }
        bool restored = true;
        if (auto finished = file.finish(&restored); !finished) {
            return Failure(std::move(finished.error()).about(entry.path, entry.localHeaderOffset));
        }
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
        const std::size_t later = task + threads_ - 1;
        const auto isGiant = [this](std::size_t index) {
            return plan_.files[plan_.tasks[index].first]->entry.uncompressedSize >= kGiant;
        };
        return threads_ > 1 && isGiant(task) && (later >= plan_.tasks.size() || !isGiant(later));
    }

    Result<> readInto(FileSink& file,
                      const EntryData& data,
                      EntryReader& reader,
                      bool inBackground) {
        if (!inBackground) {
            return reader.read(data, options_.skipChecksum, file);
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

    const ArchiveReader& archive_;
    const DestinationTree& tree_;
    ExtractionPlan plan_;
    const ExtractionOptions options_;
    const unsigned threads_;
    LinkSafety links_;

    std::atomic<std::size_t> nextTask_ = 0;
    std::atomic<bool> failed_ = false;
    std::mutex largeWindow_;
    std::mutex mutex_;  // guards what follows, and the plan's warnings
    std::optional<Error> firstError_;
    const EntryData* firstErrorEntry_ = nullptr;
};

}  // namespace

Result<ExtractionResult> extractAll(const ArchiveReader& archive,
                                    const std::filesystem::path& to,
                                    const ExtractionOptions& options) {
    auto tree = DestinationTree::open(to);
    if (!tree) {
        return passOn(tree);
    }
    std::error_code ignored;
    const std::size_t rootLength = std::filesystem::absolute(to, ignored).native().size();
    // Whoever uses the files afterwards names them from the root: separator and NUL included, that
    // must not exceed PATH_MAX.
    const std::size_t longestPath = PATH_MAX - std::min<std::size_t>(rootLength + 2, PATH_MAX);
    auto plan = planExtraction(archive.entries(),
                               {.longestName = tree->longestName(), .longestPath = longestPath});
    if (!plan) {
        return passOn(plan);
    }
    return Extraction(archive, *tree, std::move(*plan), options).run();
}

}  // namespace pellumar::archive
