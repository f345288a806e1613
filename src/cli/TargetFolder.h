#pragma once

#include <filesystem>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace pellumar {

// A folder that a command puts something into, made with those above it if it is not there. Unless
// it is kept, those that were made and have nothing in them go again.
class TargetFolder {
  public:
    // The error is a line that says why it cannot be made.
    [[nodiscard]] static tl::expected<TargetFolder, std::string> make(
        const std::filesystem::path& path);

    TargetFolder(TargetFolder&&) noexcept = default;
    TargetFolder& operator=(TargetFolder&&) = delete;
    TargetFolder(const TargetFolder&) = delete;
    TargetFolder& operator=(const TargetFolder&) = delete;
    ~TargetFolder();

    void keep() { made_.clear(); }

  private:
    TargetFolder() = default;

    std::vector<std::filesystem::path> made_;  // from above downwards
};

}  // namespace pellumar
