#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace pellumar {

// The folder that holds the application's documents: its own, and never one in which the user keeps
// files, because the workspace in it is emptied at every launch.
class DocumentDirectory {
  public:
    // The application's documents, in its data folder.
    DocumentDirectory() = default;
    // A folder of the caller's choice; `path` is absolute.
    explicit DocumentDirectory(std::filesystem::path path) : chosen_(std::move(path)) {}

    // The absolute path. The folder need not exist. If none can be told, the process stops with a
    // message: there is nowhere to fall back to that would be safe to empty.
    [[nodiscard]] std::filesystem::path path() const;

    // The folder `name` in the application's data folder, $XDG_DATA_HOME/pellumar-zip or
    // ~/.local/share/pellumar-zip; nothing if the environment tells neither.
    [[nodiscard]] static std::optional<std::filesystem::path> inDataFolder(std::string_view name);

  private:
    std::optional<std::filesystem::path> chosen_;
};

}  // namespace pellumar
