#include "archive/format/EntryPath.h"

#include "archive/format/Utf8.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::string_view kSeparators = "/\\";
constexpr std::string_view kWideBackslash = "\uFF3C";
constexpr std::string_view kWideColon = "\uFF1A";
constexpr std::string_view kPlain = "_";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDrive(std::string_view name) {
    return name.size() >= 2 && isLetter(name[0]) && name[1] == ':';
}

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

bool isOutside(std::string_view name) {
    return isSeparator(name.front()) || isDrive(name) || name.find('\0') != std::string_view::npos;
}

// Whether the name is a path already, but for a "/" at its end: nothing in it is to be dropped,
// replaced or refused. Most names are, and so are told at a look.
bool isPathAlready(std::string_view name) {
    char before = '/';
    for (const char c : name) {
        // No component begins with "." here; whether it is one of those the long way finds out.
        if (c == '\\' || (before == '/' && (c == '/' || c == '.'))) {
            return false;
        }
        before = c;
    }
    return true;
}

// The same for each name, component by component.
Result<EntryPath> judgeComponents(std::string_view name, std::string& storage) {
    EntryPath judged{.path = {}, .isFolder = isSeparator(name.back())};
    bool differs = false;
    storage.clear();
    for (std::size_t start = 0; start < name.size();) {
        const std::size_t end = std::min(name.find_first_of(kSeparators, start), name.size());
        const std::string_view component = name.substr(start, end - start);
        if (component == "..") {
            return failure(ErrorCode::kUnsafeName);
        }
        if (component.empty() || component == ".") {
            differs = true;
        } else {
            if (!storage.empty()) {
                storage += '/';
                differs = differs || name[start - 1] != '/';
            }
            storage += component;
        }
        start = end + 1;
    }
    judged.path = differs ? std::string_view(storage) : name.substr(0, storage.size());
    return judged;
}

}  // namespace

Result<EntryPath> judgeEntryName(std::string_view name, std::string& storage) {
    if (name.empty() || isOutside(name)) {
        return failure(ErrorCode::kUnsafeName);
    }
    if (isPathAlready(name)) {
        const bool isFolder = name.back() == '/';
        name.remove_suffix(isFolder ? 1 : 0);
        return EntryPath{.path = name, .isFolder = isFolder};
    }
    return judgeComponents(name, storage);
}

std::optional<std::string> portableName(std::string_view path) {
    const bool utf8 = format::isUtf8(path);
    const bool drive = isDrive(path);
    std::string name;
    name.reserve(path.size());
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '\\') {
            name += utf8 ? kWideBackslash : kPlain;
        } else if (i == 1 && drive) {
            name += utf8 ? kWideColon : kPlain;
        } else {
            name += path[i];
        }
    }
    std::string storage;
    if (name.size() > format::kMax16 || !judgeEntryName(name, storage)) {
        return std::nullopt;
    }
    return name;
}

}  // namespace pellumar::archive
