#include "archive/reading/FolderMaker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <utility>

#include "archive/base/FreeName.h"

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
                                const LinkSafety& targets,
                                ExistingFiles existing,
                                ExtractionReport& report) {
    // Known before the first replaces something: what it replaced would not come back.
    if (auto free = existing == ExistingFiles::kOverwrite ? checkNoFolder(links) : Result<>();
        !free) {
        return free;
    }
    std::vector<std::string> made;
    for (const EntryData* link : links) {
        const Entry& entry = link->entry;
        auto path = makeLink(entry, targets.targetOf(entry.path), existing);
        if (!path) {
            // A file system that took two of them for one has others lead elsewhere.
            for (const std::string& earlier : made) {
                removeLink(earlier);
            }
            return Failure(std::move(path.error()).about(entry.path, entry.localHeaderOffset));
        }
        report.skipped += path->empty() ? 1U : 0U;
        report.renamed += !path->empty() && *path != entry.path ? 1U : 0U;
        if (!path->empty()) {
            made.push_back(std::move(*path));
        }
    }
    return {};
}

Result<> FolderMaker::checkNoFolder(const std::vector<const EntryData*>& links) {
    for (const EntryData* link : links) {
        const Entry& entry = link->entry;
        auto parent = cursor_.enterParentOf(entry.path);
        struct stat there {};
        const std::string name(lastComponent(entry.path));
        if (parent && ::fstatat(*parent, name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISDIR(there.st_mode)) {
            return Failure(Error{.code = ErrorCode::kAlreadyExists,
                                 .entry = std::string(entry.path),
                                 .offset = entry.localHeaderOffset});
        }
    }
    return {};
}

void FolderMaker::removeLink(std::string_view path) {
    if (auto parent = cursor_.enterParentOf(path)) {
        ::unlinkat(*parent, std::string(lastComponent(path)).c_str(), 0);
    }
}

Result<std::string> FolderMaker::makeLink(const Entry& entry,
                                          const std::string& target,
                                          ExistingFiles existing) {
    auto parent = cursor_.enterParentOf(entry.path);
    if (!parent) {
        return passOn(parent);
    }
    std::string path(entry.path);
    const auto name = [&path] { return std::string(lastComponent(path)); };
    const bool replaces = existing == ExistingFiles::kOverwrite;
    const bool goesRound = replaces || existing == ExistingFiles::kRename;
    for (std::size_t number = kFirstNumber;
         ::symlinkat(target.c_str(), *parent, name().c_str()) != 0;
         ++number) {
        if (errno == EEXIST && existing == ExistingFiles::kSkip) {
            return std::string();
        }
        if (errno != EEXIST || !goesRound || number > kMostNumbers) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
        path = replaces ? temporaryName() : numberedName(entry.path, number);
    }
    // Few look at a link's own time; a system that cannot set it is not worth a warning.
    static_cast<void>(
        ::utimensat(*parent, name().c_str(), timesOf(entry).data(), AT_SYMLINK_NOFOLLOW));
    if (replaces && path != entry.path) {
        const std::string wanted(lastComponent(entry.path));
        if (::renameat(*parent, path.c_str(), *parent, wanted.c_str()) != 0) {
            const bool isFolder = errno == EISDIR;
            Failure failed = systemFailure(ErrorCode::kWriteFailed);
            ::unlinkat(*parent, path.c_str(), 0);
            return isFolder ? failure(ErrorCode::kAlreadyExists) : std::move(failed);
        }
        path = entry.path;
    }
    return path;
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
    const File folder =
        File::openAt(*parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
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
