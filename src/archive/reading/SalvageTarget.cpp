#include "archive/reading/SalvageTarget.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "archive/base/DataSink.h"
#include "archive/reading/FileSink.h"
#include "archive/reading/FolderMaker.h"
#include "archive/reading/TargetSink.h"

namespace pellumar::archive {

namespace {

constexpr mode_t kNewFolderMode = 0777;
constexpr unsigned kMostOfOneName = 100;

// Ends where the caller wants it to end.
class StoppableSink final : public DataSink {
  public:
    StoppableSink(DataSink& target, const std::stop_token& stop) : target_(target), stop_(stop) {}

    Result<> expectMore(std::uint64_t bytes) override { return target_.expectMore(bytes); }
    Result<> write(ByteView bytes) override {
        return stop_.stop_requested() ? failure(ErrorCode::kCancelled) : target_.write(bytes);
    }
    Result<> writeVerified(ByteView bytes) override { return target_.writeVerified(bytes); }

  private:
    DataSink& target_;
    const std::stop_token& stop_;
};

}  // namespace

SalvageTarget::SalvageTarget(const DestinationTree& tree,
                             const std::stop_token& stop,
                             SalvageReport& report)
    : tree_(tree),
      stop_(stop),
      report_(report),
      cursor_(tree),
      targets_([this](std::string_view path) { return isFolder(path); }) {}

Result<> SalvageTarget::makeFolders(std::string_view path) {
    if (path.empty() || path == lastFolder_) {
        return {};
    }
    if (path.size() >= PATH_MAX) {
        return failure(ErrorCode::kNameTooLong);
    }
    for (std::size_t end = 0; end < path.size();) {
        end = std::min(path.find('/', end + 1), path.size());
        const std::string_view folder = path.substr(0, end);
        if (isWithin(lastFolder_, folder)) {
            continue;
        }
        auto parent = cursor_.enterParentOf(folder);
        if (!parent) {
            return passOn(parent);
        }
        const std::string name(lastComponent(folder));
        if (::mkdirat(*parent, name.c_str(), kNewFolderMode) != 0 && errno != EEXIST) {
            return errno == ENAMETOOLONG ? failure(ErrorCode::kNameTooLong)
                                         : systemFailure(ErrorCode::kWriteFailed);
        }
        if (!isFolder(folder)) {
            return failure(ErrorCode::kConflictingNames);
        }
    }
    lastFolder_ = path;
    return {};
}

bool SalvageTarget::isFolder(std::string_view path) {
    auto parent = cursor_.enterParentOf(path);
    struct stat there {};
    return parent &&
           ::fstatat(
               *parent, std::string(lastComponent(path)).c_str(), &there, AT_SYMLINK_NOFOLLOW) ==
               0 &&
           S_ISDIR(there.st_mode);
}

unsigned SalvageTarget::timesTaken(std::string_view path) {
    return taken_[std::hash<std::string_view>()(path)]++;
}

Result<> SalvageTarget::addFolder(const Entry& entry) {
    auto made = makeFolders(entry.path);
    report_.recovered += made ? 1U : 0U;
    return made;
}

Result<> SalvageTarget::addFile(const EntryData& data, EntryReader& reader) {
    const Entry& entry = data.entry;
    if (entry.uncompressedSize > room()) {
        return failure(ErrorCode::kTooLarge);
    }
    // To find another name would take longer and longer.
    if (timesTaken(entry.path) >= kMostOfOneName) {
        return failure(ErrorCode::kAlreadyExists);
    }
    if (auto made = makeFolders(parentOf(entry.path)); !made) {
        return made;
    }
    auto folder = cursor_.enterParentOf(entry.path);
    if (!folder) {
        return passOn(folder);
    }
    FileSink file(*folder, entry, ExistingFiles::kRename);
    StoppableSink stoppable(file, stop_);
    if (auto read = reader.read(data, false, stoppable); !read) {
        return read;
    }
    bool restored = true;  // its time is not worth a word here
    if (auto finished = file.finish(&restored); !finished) {
        return finished;
    }
    ++report_.recovered;
    report_.renamed += file.isRenamed() ? 1U : 0U;
    report_.bytes += entry.uncompressedSize;
    return {};
}

Result<> SalvageTarget::keepLink(const EntryData& data, EntryReader& reader) {
    TargetSink target;
    if (auto read = reader.read(data, false, target); !read) {
        return read;
    }
    if (timesTaken(data.entry.path) > 0) {
        return failure(ErrorCode::kAlreadyExists);
    }
    if (!targets_.add(data.entry.path, target.take())) {
        return failure(ErrorCode::kUnsafeLink);
    }
    links_.push_back(&data);
    return {};
}

void SalvageTarget::makeLinks(const std::function<void(const EntryData&, ErrorCode)>& onLost) {
    std::vector<const EntryData*> safe;
    for (const EntryData* link : links_) {
        if (!targets_.isSafe(link->entry.path)) {
            onLost(*link, ErrorCode::kUnsafeLink);
        } else if (auto made = makeFolders(parentOf(link->entry.path)); !made) {
            onLost(*link, made.error().code);
        } else {
            safe.push_back(link);
        }
    }
    FolderMaker maker(tree_);
    ExtractionReport counted;
    if (auto made = maker.makeLinks(safe, targets_, ExistingFiles::kRefuse, counted); !made) {
        for (const EntryData* link : safe) {
            onLost(*link, made.error().code);
        }
        return;
    }
    report_.recovered += safe.size();
}

}  // namespace pellumar::archive
