#include "archive/writing/TakenNames.h"

#include "archive/base/FreeName.h"
#include "archive/format/EntryPath.h"

namespace pellumar::archive {

namespace {

// As readers will take the name, without a "./" and the like.
std::string pathOf(std::string_view name) {
    std::string storage;
    const auto judged = judgeEntryName(name, storage);
    return judged ? std::string(judged->path) : std::string(name);
}

}  // namespace

bool TakenNames::isFile(const std::string& path) const {
    const auto found = kinds_.find(path);
    return found != kinds_.end() && found->second == Kind::kFile;
}

std::optional<std::string_view> TakenNames::conflictOf(std::string_view path, bool isFolder) const {
    for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
         slash = path.find('/', slash + 1)) {
        if (isFile(std::string(path.substr(0, slash)))) {
            return path.substr(0, slash);
        }
    }
    const auto found = kinds_.find(std::string(path));
    // A folder may be told of twice.
    const bool areFolders = isFolder && found != kinds_.end() && found->second == Kind::kFolder;
    return found == kinds_.end() || areFolders ? std::nullopt : std::optional(path);
}

bool TakenNames::isFree(std::string_view name, bool isFolder) const {
    return !conflictOf(pathOf(name), isFolder);
}

std::string TakenNames::freeName(std::string_view name, bool isFolder) const {
    std::string path = pathOf(name);
    while (const auto conflict = conflictOf(path, isFolder)) {
        const std::string rest = path.substr(conflict->size());
        const std::string taken(*conflict);
        for (std::size_t number = 2;; ++number) {
            const std::string other = numberedName(taken, number);
            // What is on the way may be a folder already.
            const auto found = kinds_.find(other);
            if (found == kinds_.end() || (!rest.empty() && found->second == Kind::kFolder)) {
                path = other + rest;
                break;
            }
        }
    }
    return path;
}

void TakenNames::add(std::string_view name, bool isFolder) {
    const std::string path = pathOf(name);
    for (std::size_t slash = path.find('/'); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        kinds_.emplace(path.substr(0, slash), Kind::kFolder);
    }
    kinds_.emplace(path, isFolder ? Kind::kFolder : Kind::kFile);
}

}  // namespace pellumar::archive
