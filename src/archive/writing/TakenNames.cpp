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

TakenNames::Kinds::const_iterator TakenNames::nearestAbove(std::string_view path) const {
    for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos && slash > 0;
         slash = path.rfind('/', slash - 1)) {
        if (const auto found = kinds_.find(std::string(path.substr(0, slash)));
            found != kinds_.end()) {
            return found;
        }
    }
    return kinds_.end();
}

std::optional<std::string_view> TakenNames::conflictOf(std::string_view path, bool isFolder) const {
    const auto found = kinds_.find(std::string(path));
    if (found != kinds_.end()) {
        // A folder may be told of twice.
        const bool areFolders = isFolder && found->second == Kind::kFolder;
        return areFolders ? std::nullopt : std::optional(path);
    }
    const auto above = nearestAbove(path);
    return above != kinds_.end() && above->second == Kind::kFile
               ? std::optional(path.substr(0, above->first.size()))
               : std::nullopt;
}

bool TakenNames::isFree(std::string_view name, bool isFolder) const {
    return !conflictOf(pathOf(name), isFolder);
}

std::string TakenNames::freeName(std::string_view name, bool isFolder) {
    std::string path = pathOf(name);
    while (const auto conflict = conflictOf(path, isFolder)) {
        const std::string rest = path.substr(conflict->size());
        const std::string taken(*conflict);
        std::size_t& number =
            numbers_.try_emplace(rest.empty() ? taken : taken + '/', 2).first->second;
        for (;; ++number) {
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
    const auto above = nearestAbove(path);
    const std::size_t known = above == kinds_.end() ? 0 : above->first.size() + 1;
    for (std::size_t slash = path.find('/', known); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        kinds_.emplace(path.substr(0, slash), Kind::kFolder);
    }
    kinds_.emplace(path, isFolder ? Kind::kFolder : Kind::kFile);
}

}  // namespace pellumar::archive
