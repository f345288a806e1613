#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace pellumar::archive {

// The symbolic links of an archive, by path, with their targets. Tells whether following one could
// lead out of the folder that the archive is extracted into, by way of the other links as well.
// After the links have been added it may be asked by several threads.
class LinkSafety {
  public:
    void add(std::string_view path, std::string target) { links_[path] = std::move(target); }

    // Whether the target of the link at `path` stays inside. It need not exist. Absolute targets,
    // empty ones, ones with a NUL, chains of more links than the kernel follows, and targets that
    // add up to more than a path can have are not safe.
    [[nodiscard]] bool isSafe(std::string_view path) const;

    [[nodiscard]] const std::string& targetOf(std::string_view path) const {
        return links_.at(path);
    }

  private:
    std::unordered_map<std::string_view, std::string> links_;
};

}  // namespace pellumar::archive
