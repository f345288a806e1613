#include "cli/TargetFolder.h"

#include <unistd.h>

#include <system_error>

namespace pellumar {

namespace fs = std::filesystem;

tl::expected<TargetFolder, std::string> TargetFolder::make(const fs::path& path) {
    TargetFolder folder;
    fs::path part;
    for (const fs::path& component : path) {
        part /= component;
        std::error_code error;
        if (fs::create_directory(part, error)) {
            folder.made_.push_back(part);
        } else if (error) {
            return tl::unexpected(path.native() + ": " + error.message());
        }
    }
    return folder;
}

TargetFolder::~TargetFolder() {
    while (!made_.empty() && ::rmdir(made_.back().c_str()) == 0) {
        made_.pop_back();
    }
}

}  // namespace pellumar
