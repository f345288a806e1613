#include "archive/reading/FolderMaker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <utility>

namespace pellumar::archive {

namespace {

constexpr std::uint32_t kOwnerAll = 0700;
constexpr std::uint32_t kUsualPermissions = 0777;

std::uint32_t permissionsWhileFilled(const ExtractionPlan::Folder& folder) {
    return folder.data == nullptr ? kUsualPermissions : folder.data->entry.permissions | kOwnerAll;
}

std::array<timespec, 2> timesOf(const Entry& entry) {
    return {{{.tv_sec = 0, .tv_nsec = UTIME_OMIT}, entry.modified}};
}

}  // namespace

Result<> FolderMaker::makeAll(const std::vector<ExtractionPlan::Folder>& folders) {
    for (const ExtractionPlan::Folder& folder : folders) {
        auto made = make(folder);
        if (!made) {
            const std::uint64_t offset =
                folder.data == nullptr ? 0 : folder.data->entry.localHeaderOffset;
            return Failure(std::move(made.error()).about(folder.path, offset));
        }
        states_.push_back(*made);
    }
    return {};
}

Result<FolderMaker::State> FolderMaker::make(const ExtractionPlan::Folder& folder) {
    auto parent = cursor_.enterParentOf(folder.path);
    if (!parent) {
        return passOn(parent);
    }
    const std::string name(lastComponent(folder.path));
    if (::mkdirat(*parent, name.c_str(), static_cast<mode_t>(permissionsWhileFilled(folder))) ==
        0) {
        return State::kMade;
    }
    if (errno != EEXIST) {
        return systemFailure(ErrorCode::kWriteFailed);
    }
    struct stat status {};
    if (::fstatat(*parent, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISDIR(status.st_mode)) {
        return failure(ErrorCode::kAlreadyExists);
    }
    return State::kStoodThere;
}

void FolderMaker::restoreEarly(std::size_t index, const Entry& entry, int descriptor) {
    if (states_[index] == State::kMade && hasPermissions(entry) &&
        ::utimensat(descriptor, ".", timesOf(entry).data(), 0) == 0) {
        states_[index] = State::kRestored;
    }
}

Result<> FolderMaker::makeLinks(const std::vector<const EntryData*>& links,
                                const LinkSafety& targets) {
    for (std::size_t i = 0; i < links.size(); ++i) {
        const Entry& entry = links[i]->entry;
        if (auto made = makeLink(entry, targets.targetOf(entry.path)); !made) {
            // A file system that took two of them for one has others lead elsewhere.
            for (std::size_t earlier = i; earlier-- > 0;) {
                removeLink(links[earlier]->entry);
            }
            return Failure(std::move(made.error()).about(entry.path, entry.localHeaderOffset));
        }
    }
    return {};
}

void FolderMaker::removeLink(const Entry& entry) {
    if (auto parent = cursor_.enterParentOf(entry.path)) {
        ::unlinkat(*parent, std::string(lastComponent(entry.path)).c_str(), 0);
    }
}

Result<> FolderMaker::makeLink(const Entry& entry, const std::string& target) {
    auto parent = cursor_.enterParentOf(entry.path);
    if (!parent) {
        return passOn(parent);
    }
    const std::string name(lastComponent(entry.path));
    if (::symlinkat(target.c_str(), *parent, name.c_str()) != 0) {
        return systemFailure(ErrorCode::kWriteFailed);
    }
    // Few look at a link's own time; a system that cannot set it is not worth a warning.
    static_cast<void>(
        ::utimensat(*parent, name.c_str(), timesOf(entry).data(), AT_SYMLINK_NOFOLLOW));
    return {};
}

void FolderMaker::restoreMetadata(const std::vector<ExtractionPlan::Folder>& folders,
                                  Warnings& warnings) {
    // From the innermost outwards: a folder may take away the right to reach what is in it.
    for (std::size_t i = folders.size(); i-- > 0;) {
        const ExtractionPlan::Folder& folder = folders[i];
        if (states_[i] == State::kMade && folder.data != nullptr && !restore(folder.data->entry)) {
            warnings.add(WarningCode::kMetadataNotRestored,
                         folder.path,
                         folder.data->entry.localHeaderOffset);
        }
    }
}

bool FolderMaker::restore(const Entry& entry) {
    auto parent = cursor_.enterParentOf(entry.path);
    if (!parent) {
        return false;
    }
    const std::string name(lastComponent(entry.path));
    const bool timed =
        ::utimensat(*parent, name.c_str(), timesOf(entry).data(), AT_SYMLINK_NOFOLLOW) == 0;
    if (hasPermissions(entry)) {
        return timed;
    }
    const File folder(
        ::openat(*parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat made {};
    // What the umask has taken stays taken.
    return folder.isOpen() && ::fstat(folder.descriptor(), &made) == 0 &&
           ::fchmod(folder.descriptor(), made.st_mode & static_cast<mode_t>(entry.permissions)) ==
               0 &&
           timed;
}

bool FolderMaker::hasPermissions(const Entry& entry) {
    return (entry.permissions & kOwnerAll) == kOwnerAll;
}

}  // namespace pellumar::archive
