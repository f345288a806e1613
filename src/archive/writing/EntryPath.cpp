#include "archive/writing/EntryPath.h"

#include <string>

#include "archive/format/EntryPath.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

bool isEntryPath(std::string_view path) {
    std::string storage;
    return path.size() <= format::kMax16 && path.find('\\') == path.npos &&
           judgeEntryName(path, storage);
}

}  // namespace pellumar::archive
