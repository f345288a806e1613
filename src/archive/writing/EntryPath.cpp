#include "archive/writing/EntryPath.h"

#include <algorithm>
#include <cstddef>

#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

bool isEntryPath(std::string_view path) {
    if (path.empty() || path.front() == '/' || path.size() > format::kMax16 ||
        path.find('\0') != std::string_view::npos) {
        return false;
    }
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        if (path.substr(start, end - start) == "..") {
            return false;
        }
        start = end + 1;
    }
    return true;
}

}  // namespace pellumar::archive
