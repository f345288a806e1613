#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <mutex>
#include <string>
#include <unordered_map>

namespace pellumar {

// What the user picked and nobody copied: of each link that stands for it, what it was like then.
// Who reads through the link asks afterwards whether it got what was picked. For any thread.
class Originals {
  public:
    // `link` leads to a file that had this status when it was picked.
    void note(const std::filesystem::path& link, const struct stat& status);

    // False if `link` leads to another file by now, or to one whose content may have changed. True
    // for what was never noted. May block as a look at a file may.
    [[nodiscard]] bool isUnchanged(const std::filesystem::path& link) const;

  private:
    mutable std::mutex mutex_;
    std::unordered_map<std::string, struct stat> noted_;
};

}  // namespace pellumar
