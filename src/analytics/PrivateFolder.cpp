#include "analytics/PrivateFolder.h"

#include <system_error>

namespace pellumar {

bool makePrivateFolder(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    std::error_code error;
    fs::create_directories(folder, error);
    const fs::file_status status = fs::status(folder, error);
    if (error || !fs::is_directory(status)) {
        return false;
    }
    if (status.permissions() != fs::perms::owner_all) {
        fs::permissions(folder, fs::perms::owner_all, error);
    }
    return !error;
}

}  // namespace pellumar
