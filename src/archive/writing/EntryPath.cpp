#include "archive/writing/EntryPath.h"

#include "archive/format/EntryPath.h"
#include "archive/format/Utf8.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

constexpr std::string_view kWideBackslash = "\uFF3C";
constexpr std::string_view kWideColon = "\uFF1A";
constexpr std::string_view kPlain = "_";

bool isDrive(std::string_view path) {
    const char letter = path.empty() ? '\0' : static_cast<char>(path[0] | 0x20);
    return path.size() >= 2 && letter >= 'a' && letter <= 'z' && path[1] == ':';
}

}  // namespace

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
