#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pellumar::archive {

// The symbolic links of an archive, by path, with their targets. Tells whether following one could
// lead out of the folder that the archive is extracted into, by way of the other links as well.
// After the links have been added it may be asked by several threads.
class LinkSafety {
  public:
    // The most bytes that all targets may have together.
    static constexpr std::size_t kMostTargetBytes = 16UL * 1024 * 1024;

    // False, and nothing kept, if the targets together become too long to be kept.
    [[nodiscard]] bool add(std::string_view path, std::string target);

    // Whether the target of the link at `path`, which was added, stays inside, given that those of
    // all other links do. It need not exist. Absolute targets, empty ones and ones with a NUL are
    // not safe, nor are ones that climb again after they have descended if they are longer than a
    // path or lead through more links than the kernel follows.
    [[nodiscard]] bool isSafe(std::string_view path) const;

    [[nodiscard]] const std::string& targetOf(std::string_view path) const {
        return links_.at(path);
    }

  private:
    [[nodiscard]] bool staysInside(std::string_view path) const;

    std::unordered_map<std::string_view, std::string> links_;
    std::size_t targetBytes_ = 0;
    std::size_t longestPath_ = 0;
};

}  // namespace pellumar::archive
