#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace pellumar::archive {

// The symbolic links of an archive, by path, with their targets. Tells whether following one could
// lead out of the folder that the archive is extracted into, by way of the other links as well,
// also where the file system takes names that differ in case, or in how letters are composed, for
// one.
class LinkSafety {
  public:
    // The most bytes that all targets may have together.
    static constexpr std::size_t kMostTargetBytes = 16UL * 1024 * 1024;
    // The most bytes of paths that are looked up to judge all links.
    static constexpr std::size_t kMostLookedUp = 256UL * 1024 * 1024;

    // `isFolder` says of a path whether a folder, and no link, will stand there before any link is
    // made; `allStand` whether every link will stand under its own path, or something else may:
    // what stood there before, or another of them that the file system takes for the same.
    explicit LinkSafety(std::function<bool(std::string_view)> isFolder, bool allStand = true)
        : isFolder_(std::move(isFolder)), allStand_(allStand) {}

    // False, and nothing kept, if the targets together become too long to be kept.
    [[nodiscard]] bool add(std::string_view path, std::string target);

    // Whether the target of the link at `path`, which was added, stays inside, given that those of
    // all other links do. It need not exist. Not safe are absolute targets, empty ones and ones
    // with a NUL. Of those that climb again after they have descended neither are ones that descend
    // through what is no folder or link of the archive, that are longer than a path, or that lead
    // through more links than the kernel follows. Nor is any of them that would have to be walked
    // when kMostLookedUp is reached.
    [[nodiscard]] bool isSafe(std::string_view path);

    [[nodiscard]] const std::string& targetOf(std::string_view path) const {
        return links_.at(path);
    }

  private:
    // Its target; null if there is none, or nobody knows.
    [[nodiscard]] const std::string* linkThatStandsAt(std::string_view path) const;
    [[nodiscard]] bool staysInside(std::string_view path);

    std::function<bool(std::string_view)> isFolder_;
    bool allStand_;
    std::unordered_map<std::string_view, std::string> links_;
    std::size_t targetBytes_ = 0;
    std::size_t lookedUp_ = 0;
};

}  // namespace pellumar::archive
