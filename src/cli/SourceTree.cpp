#include "cli/SourceTree.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "archive/base/LinkSafety.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

std::string joined(const std::string& start, const std::string& below) {
    if (start.empty() || below.empty()) {
        return start + below;
    }
    return start.ends_with('/') ? start + below : start + '/' + below;
}

// The name that an entry gets of what was named: without what leads to the root, up, or nowhere.
std::string entryName(const fs::path& named) {
    std::string name = named.lexically_normal().native();
    while (name.starts_with('/') || name.starts_with("../")) {
        name.erase(0, name.find('/') + 1);
    }
    while (name.ends_with('/')) {
        name.pop_back();
    }
    return name == "." || name == ".." ? std::string() : name;
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

archive::EntryType typeOf(const struct stat& status) {
    if (S_ISLNK(status.st_mode)) {
        return archive::EntryType::kSymbolicLink;
    }
    return S_ISDIR(status.st_mode) ? archive::EntryType::kFolder : archive::EntryType::kFile;
}

std::string wordsFor(int error) {
    return std::generic_category().message(error);
}

}  // namespace

SourceTree::SourceTree(const std::vector<std::string>& exclude,
                       std::optional<struct stat> archive,
                       Messages& messages)
    : exclusions_(exclude), archive_(archive), messages_(messages) {}

bool SourceTree::add(const fs::path& named, bool withAllBelow) {
    if (roots_.size() == 1) {
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            holders_.emplace(nameOf(sources_[i]), i);
        }
    }
    roots_.push_back({.path = named.native(), .name = entryName(named)});
    struct stat status {};
    if (::lstat(named.c_str(), &status) != 0) {
        messages_.fail(named.native() + ": " + wordsFor(errno));
        return false;
    }
    return take({}, withAllBelow);
}

archive::NewEntry SourceTree::entry(std::size_t index) const {
    return {.name = nameOf(sources_[index]),
            .content =
                archive::NewEntry::FromPath{.path = pathOf(sources_[index]), .linkAsLink = true}};
}

std::vector<std::string> SourceTree::linksThatLeave() const {
    std::vector<std::size_t> links;
    std::unordered_set<std::string> folders;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
        if (sources_[i].type == archive::EntryType::kSymbolicLink) {
            links.push_back(i);
        }
    }
    for (std::size_t i = 0; !links.empty() && i < sources_.size(); ++i) {
        std::string name = nameOf(sources_[i]);
        if (sources_[i].type == archive::EntryType::kFolder) {
            folders.insert(name);
        }
        // Those above it as well; where one is known, so are the ones above that.
        while (name.find('/') != std::string::npos) {
            name.erase(name.rfind('/'));
            if (!folders.insert(name).second) {
                break;
            }
        }
    }
    archive::LinkSafety safety(
        [&folders](std::string_view path) { return folders.count(std::string(path)) != 0; });
    std::vector<std::string> names;
    names.reserve(links.size());
    std::size_t known = 0;  // of more than these no extraction keeps the targets
    for (const std::size_t link : links) {
        std::error_code unreadable;  // which is told when its turn comes
        const fs::path target = fs::read_symlink(pathOf(sources_[link]), unreadable);
        names.push_back(nameOf(sources_[link]));
        if (!safety.add(names.back(), target.native())) {
            break;
        }
        ++known;
    }
    std::vector<std::string> leaving;
    for (std::size_t i = 0; i < links.size(); ++i) {
        if (i >= known || !safety.isSafe(names[i])) {
            leaving.push_back(pathOf(sources_[links[i]]));
        }
    }
    return leaving;
}

SourceTree::Source SourceTree::atLastRoot(const std::string& below) const {
    return {.root = static_cast<std::uint32_t>(roots_.size() - 1),
            .type = archive::EntryType::kFile,
            .below = below};
}

bool SourceTree::take(const std::string& below, bool withAllBelow) {
    Source source = atLastRoot(below);
    const std::string path = pathOf(source);
    const std::string name = nameOf(source);
    if (exclusions_.cover(name)) {
        return true;
    }
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        // One that is gone was there a moment ago, so nobody misses it.
        if (errno != ENOENT) {
            messages_.fail(path + ": " + wordsFor(errno));
            isIncomplete_ = true;
        }
        return true;
    }
    if (archive_ && isSame(*archive_, status)) {
        messages_.warn(path + ": is the archive itself, and left out");
        return true;
    }
    const bool isFolder = S_ISDIR(status.st_mode);
    if (!isFolder && !S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
        messages_.warn(path + ": is no file, folder or link, and left out");
        return true;
    }
    if (!name.empty()) {
        if (const std::optional<std::size_t> holder = holderOf(name)) {
            const std::string other = pathOf(sources_[*holder]);
            struct stat otherStatus {};
            if (::lstat(other.c_str(), &otherStatus) == 0 && !isSame(otherStatus, status)) {
                messages_.fail(path + ": would have the name of " + other);
                return false;
            }
        } else {
            source.type = typeOf(status);
            sources_.push_back(source);
            bytes_ += S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
        }
    }
    return !isFolder || !withAllBelow || takeFolder(below);
}

bool SourceTree::takeFolder(const std::string& below) {
    const std::string path = pathOf(atLastRoot(below));
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error)) {
        names.push_back(entry->path().filename().native());
    }
    if (error) {
        messages_.fail(path + ": " + error.message());
        isIncomplete_ = true;
    }
    // Folders have no order of their own that another machine would have too.
    std::sort(names.begin(), names.end());
    return std::all_of(names.begin(), names.end(), [&](const std::string& name) {
        return take(joined(below, name), true);
    });
}

std::optional<std::size_t> SourceTree::holderOf(const std::string& name) {
    if (roots_.size() == 1) {
        return std::nullopt;
    }
    const auto [holder, isNew] = holders_.emplace(name, sources_.size());
    return isNew ? std::nullopt : std::optional(holder->second);
}

std::string SourceTree::pathOf(const Source& source) const {
    return joined(roots_[source.root].path, source.below);
}

std::string SourceTree::nameOf(const Source& source) const {
    return joined(roots_[source.root].name, source.below);
}

}  // namespace pellumar
