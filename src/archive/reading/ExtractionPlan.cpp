#include "archive/reading/ExtractionPlan.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "archive/reading/DestinationTree.h"

namespace pellumar::archive {

namespace {

// From this size on a file is a task of its own, and the largest go first: one that comes last
// would keep a single thread busy while the others have nothing left to do.
constexpr std::uint64_t kLargeFile = 1024UL * 1024;
// Small neighbours share a task, so that their folder is entered once.
constexpr std::size_t kMostFilesInTask = 64;
constexpr std::uint64_t kMostBytesInTask = 4UL * kLargeFile;

// Orders paths so that what is in a folder follows the folder at once: "/" is below every other
// character ("a", "a/b", "a.b").
bool pathBefore(std::string_view a, std::string_view b) {
    const auto [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (inA == a.end() || inB == b.end()) {
        return inA == a.end() && inB != b.end();
    }
    if (*inA == '/' || *inB == '/') {
        return *inA == '/';
    }
    return static_cast<unsigned char>(*inA) < static_cast<unsigned char>(*inB);
}

bool isWithin(std::string_view path, std::string_view folder) {
    return folder.empty() ||
           (path.size() > folder.size() && path[folder.size()] == '/' && path.starts_with(folder));
}

Failure failureOf(const EntryData& data, ErrorCode code) {
    return Failure(Error{.code = code,
                         .entry = std::string(data.entry.path),
                         .offset = data.entry.localHeaderOffset});
}

bool fits(std::string_view path, const PathLimits& limits) {
    if (path.size() > limits.longestPath) {
        return false;
    }
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > limits.longestName) {
            return false;
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return true;
}

class Planner {
  public:
    Planner(const EntryTable& table, const PathLimits& limits) : limits_(limits) {
        order_.reserve(table.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
            order_.push_back(&table[i]);
        }
        // Pointers into the table are in its order, so that the last of equals is the one to take.
        std::sort(order_.begin(), order_.end(), [](const EntryData* a, const EntryData* b) {
            if (a->entry.path == b->entry.path) {
                return a < b;
            }
            return pathBefore(a->entry.path, b->entry.path);
        });
    }

    Result<ExtractionPlan> plan() {
        for (std::size_t i = 0; i < order_.size(); ++i) {
            const EntryData& data = *order_[i];
            const bool hasLaterTwin =
                i + 1 < order_.size() && order_[i + 1]->entry.path == data.entry.path;
            if (hasLaterTwin) {
                if (isFolder(data) != isFolder(*order_[i + 1])) {
                    return failureOf(data, ErrorCode::kConflictingNames);
                }
                if (!isFolder(data)) {
                    plan_.warnings.add(
                        WarningCode::kDuplicatePath, data.entry.path, data.entry.localHeaderOffset);
                }
                continue;
            }
            if (auto taken = take(data); !taken) {
                return passOn(taken);
            }
        }
        makeTasks();
        return std::move(plan_);
    }

  private:
    static bool isFolder(const EntryData& data) { return data.entry.type == EntryType::kFolder; }

    Result<> take(const EntryData& data) {
        const std::string_view path = data.entry.path;
        if (!lastFile_.empty() && isWithin(path, lastFile_)) {
            return failureOf(data, ErrorCode::kConflictingNames);
        }
        if (!fits(path, limits_)) {
            return failureOf(data, ErrorCode::kNameTooLong);
        }
        addParents(path);
        warnOf(data);
        if (isFolder(data)) {
            plan_.folders.push_back({.path = path, .data = &data});
            openFolders_.push_back(path);
            return {};
        }
        lastFile_ = path;
        if (data.entry.type == EntryType::kSymbolicLink) {
            plan_.links.push_back(&data);
            return {};
        }
        plan_.files.push_back(&data);
        if (__builtin_add_overflow(plan_.bytes, data.entry.uncompressedSize, &plan_.bytes)) {
            return failureOf(data, ErrorCode::kTooLarge);
        }
        return {};
    }

    // Adds the folders above `path` that no entry stands for.
    void addParents(std::string_view path) {
        while (!openFolders_.empty() && !isWithin(path, openFolders_.back())) {
            openFolders_.pop_back();
        }
        std::size_t from = openFolders_.empty() ? 0 : openFolders_.back().size() + 1;
        for (std::size_t slash = path.find('/', from); slash != std::string_view::npos;
             slash = path.find('/', slash + 1)) {
            plan_.folders.push_back({.path = path.substr(0, slash), .data = nullptr});
            openFolders_.push_back(path.substr(0, slash));
        }
    }

    void warnOf(const EntryData& data) {
        const Entry& entry = data.entry;
        if (data.specialFile) {
            plan_.warnings.add(WarningCode::kSpecialFile, entry.path, entry.localHeaderOffset);
        }
        if (data.setIdBits) {
            plan_.warnings.add(WarningCode::kSetIdBitsDropped, entry.path, entry.localHeaderOffset);
        }
    }

    void makeTasks() {
        auto& files = plan_.files;
        const auto isLarge = [](const EntryData* data) {
            return data->entry.uncompressedSize >= kLargeFile;
        };
        const auto firstSmall = std::stable_partition(files.begin(), files.end(), isLarge);
        std::stable_sort(files.begin(), firstSmall, [](const EntryData* a, const EntryData* b) {
            return a->entry.uncompressedSize > b->entry.uncompressedSize;
        });
        const auto large = static_cast<std::size_t>(firstSmall - files.begin());
        for (std::size_t i = 0; i < large; ++i) {
            plan_.tasks.push_back({.first = i, .count = 1});
        }
        std::uint64_t bytes = 0;
        for (std::size_t i = large; i < files.size(); ++i) {
            const Entry& entry = files[i]->entry;
            const bool joins = i > large && plan_.tasks.back().count < kMostFilesInTask &&
                               bytes < kMostBytesInTask &&
                               parentOf(entry.path) == parentOf(files[i - 1]->entry.path);
            if (joins) {
                ++plan_.tasks.back().count;
                bytes += entry.uncompressedSize;
            } else {
                plan_.tasks.push_back({.first = i, .count = 1});
                bytes = entry.uncompressedSize;
            }
        }
    }

    const PathLimits limits_;
    std::vector<const EntryData*> order_;
    std::vector<std::string_view> openFolders_;
    std::string_view lastFile_;
    ExtractionPlan plan_;
};

}  // namespace

std::uint64_t ExtractionPlan::bytesOnDisk(std::uint64_t blockSize) const {
    std::uint64_t sum = 0;
    bool overflow = __builtin_mul_overflow(folders.size(), blockSize, &sum);
    for (const EntryData* file : files) {
        const std::uint64_t size = file->entry.uncompressedSize;
        const std::uint64_t part = size % blockSize;
        overflow = overflow || __builtin_add_overflow(sum, size, &sum) ||
                   __builtin_add_overflow(sum, part == 0 ? 0 : blockSize - part, &sum);
    }
    return overflow ? std::numeric_limits<std::uint64_t>::max() : sum;
}

Result<ExtractionPlan> planExtraction(const EntryTable& table, const PathLimits& limits) {
    return Planner(table, limits).plan();
}

}  // namespace pellumar::archive
