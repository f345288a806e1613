#include "archive/format/EntryPath.h"

namespace pellumar::archive {

namespace {

constexpr std::string_view kSeparators = "/\\";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isOutside(std::string_view name) {
    const bool absolute = kSeparators.find(name.front()) != std::string_view::npos;
    const bool drive = name.size() >= 2 && isLetter(name[0]) && name[1] == ':';
    return absolute || drive || name.find('\0') != std::string_view::npos;
}

}  // namespace

Result<EntryPath> judgeEntryName(std::string_view name, std::string& storage) {
    if (name.empty() || isOutside(name)) {
        return failure(ErrorCode::kUnsafeName);
    }
    EntryPath judged{.path = {},
                     .isFolder = kSeparators.find(name.back()) != std::string_view::npos};
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

}  // namespace pellumar::archive
