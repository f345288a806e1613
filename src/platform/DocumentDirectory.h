#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "platform/UserFolders.h"

namespace pellumar {

// The folder that holds the application's documents: its own, and never one in which the user keeps
// files, because the workspace in it is emptied at every launch.
class DocumentDirectory {
  public:
    // The application's documents, in its data folder.
    DocumentDirectory() = default;
    // A folder of the caller's choice; `path` is absolute.
    explicit DocumentDirectory(std::filesystem::path path) : chosen_(std::move(path)) {}

    // The absolute path. The folder need not exist.
    [[nodiscard]] std::filesystem::path path() const {
        return chosen_ ? *chosen_ : UserFolders::data("Documents");
    }

  private:
    std::optional<std::filesystem::path> chosen_;
};

}  // namespace pellumar
