#include "archive/reading/ExtractionPlan.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "archive/reading/DestinationTree.h"

namespace pellumar::archive {

namespace {

// From this size on a file is a task of its own, and the largest go first: one that comes last
// would keep a single thread busy while the others have nothing left to do.
constexpr std::uint64_t kLargeFile = 1024UL * 1024;
// Small neighbours share a task, so that their folder is entered once and they are read together.
// The last tasks should be short, since threads wait for each other at the end.
constexpr std::size_t kMostFilesInTask = 64;
constexpr std::uint64_t kMostBytesInTask = 1024UL * 1024;
// A name of 4 KB can ask for 2,000 folders that it alone is in. No tree that somebody has made has
// that many folders for so few files.
constexpr std::size_t kMostFoldersForEntry = 64;
constexpr std::size_t kFoldersForAnyArchive = 64UL * 1024;

Failure failureOf(const EntryData& data, ErrorCode code) {
    return Failure(Error{.code = code,
                         .entry = std::string(data.entry.path),
                         .offset = data.entry.localHeaderOffset});
}

// How many characters two paths have in common at their beginning.
std::size_t commonLength(std::string_view a, std::string_view b) {
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t at = 0;
    // Neighbours have long beginnings in common.
    while (at + sizeof(std::uint64_t) <= shorter &&
           std::memcmp(a.data() + at, b.data() + at, sizeof(std::uint64_t)) == 0) {
        at += sizeof(std::uint64_t);
    }
    while (at < shorter && a[at] == b[at]) {
        ++at;
    }
    return at;
}

// For paths that have no more than `at` characters in common.
bool isBefore(std::string_view a, std::string_view b, std::size_t at) {
    if (at == a.size() || at == b.size()) {
        return a.size() < b.size();
    }
    if (a[at] == '/' || b[at] == '/') {
        return a[at] == '/';
    }
    return static_cast<unsigned char>(a[at]) < static_cast<unsigned char>(b[at]);
}

bool fits(std::string_view path, const PathLimits& limits) {
    if (path.size() > limits.longestPath) {
        return false;
    }
    // What is short enough for a name has no component that is too long.
    while (path.size() > limits.longestName) {
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
        small_.reserve(table.size());
        for (std::size_t i = 0; i < table.size(); ++i) {
            order_.push_back(&table[i]);
        }
        // Pointers into the table are in its order, so that the last of equals is the one to take.
        std::sort(order_.begin(), order_.end(), [](const EntryData* a, const EntryData* b) {
            const std::string_view first = a->entry.path;
            const std::string_view second = b->entry.path;
            const std::size_t at = commonLength(first, second);
            const bool areEqual = at == first.size() && at == second.size();
            return areEqual ? a < b : isBefore(first, second, at);
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
        if (plan_.folders.size() > kFoldersForAnyArchive + kMostFoldersForEntry * order_.size()) {
            return failureOf(data, ErrorCode::kTooLarge);
        }
        warnOf(data);
        if (isFolder(data)) {
            addFolder({.path = path, .data = &data});
            return {};
        }
        lastFile_ = path;
        const std::size_t folder =
            openFolders_.empty() ? ExtractionPlan::kTop : openFolders_.back();
        const bool isLink = data.entry.type == EntryType::kSymbolicLink;
        const bool isLarge = data.entry.uncompressedSize >= kLargeFile;
        if (isLink || isLarge) {
            isFilledByMany(folder);
        }
        if (isLink) {
            plan_.links.push_back(&data);
            return {};
        }
        (isLarge ? large_ : small_)
            .push_back({.data = &data, .folder = folder, .offset = data.entry.localHeaderOffset});
        if (__builtin_add_overflow(plan_.bytes, data.entry.uncompressedSize, &plan_.bytes)) {
            return failureOf(data, ErrorCode::kTooLarge);
        }
        return {};
    }

    // Adds the folders above `path` that no entry stands for.
    void addParents(std::string_view path) {
        while (!openFolders_.empty() && !isWithin(path, plan_.folders[openFolders_.back()].path)) {
            openFolders_.pop_back();
        }
        const std::size_t from =
            openFolders_.empty() ? 0 : plan_.folders[openFolders_.back()].path.size() + 1;
        for (std::size_t slash = path.find('/', from); slash != std::string_view::npos;
             slash = path.find('/', slash + 1)) {
            addFolder({.path = path.substr(0, slash), .data = nullptr});
        }
    }

    void addFolder(const ExtractionPlan::Folder& folder) {
        openFolders_.push_back(plan_.folders.size());
        plan_.folders.push_back(folder);
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

    void isFilledByMany(std::size_t folder) {
        if (folder != ExtractionPlan::kTop) {
            plan_.folders[folder].filledByMany = true;
        }
    }

    void makeTasks() {
        plan_.files.reserve(large_.size() + small_.size());
        std::stable_sort(large_.begin(), large_.end(), [](const File& a, const File& b) {
            return a.data->entry.uncompressedSize > b.data->entry.uncompressedSize;
        });
        for (const File& file : large_) {
            plan_.tasks.push_back({.first = plan_.files.size(), .count = 1, .folder = file.folder});
            plan_.files.push_back(file.data);
        }
        std::sort(small_.begin(), small_.end(), [](const File& a, const File& b) {
            return std::pair(a.folder, a.offset) < std::pair(b.folder, b.offset);
        });
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < small_.size(); ++i) {
            const File& file = small_[i];
            const bool sameFolder = i > 0 && file.folder == small_[i - 1].folder;
            const bool joins = sameFolder && plan_.tasks.back().count < kMostFilesInTask &&
                               bytes < kMostBytesInTask;
            if (!joins) {
                plan_.tasks.push_back(
                    {.first = plan_.files.size(), .count = 0, .folder = file.folder});
                bytes = 0;
            }
            if (sameFolder && !joins) {
                isFilledByMany(file.folder);
            }
            ++plan_.tasks.back().count;
            bytes += file.data->entry.uncompressedSize;
            plan_.files.push_back(file.data);
        }
    }

    struct File {
        const EntryData* data = nullptr;
        std::size_t folder = 0;
        std::uint64_t offset = 0;
    };

    const PathLimits limits_;
    std::vector<const EntryData*> order_;
    std::vector<std::size_t> openFolders_;  // those of the plan that hold what comes next
    std::vector<File> large_;
    std::vector<File> small_;
    std::string_view lastFile_;
    ExtractionPlan plan_;
};

}  // namespace

bool pathBefore(std::string_view a, std::string_view b) {
    return isBefore(a, b, commonLength(a, b));
}

bool ExtractionPlan::holdsFolder(std::string_view path) const {
    const auto found = std::lower_bound(
        folders.begin(), folders.end(), path, [](const Folder& folder, std::string_view wanted) {
            return pathBefore(folder.path, wanted);
        });
    return found != folders.end() && found->path == path;
}

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
