#pragma once

#include <filesystem>
#include <string_view>

namespace pellumar::test {

// A new, empty folder that is removed with all that is in it when the object goes.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    TemporaryFolder(TemporaryFolder&&) = delete;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(std::string_view name) const {
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
};

}  // namespace pellumar::test
