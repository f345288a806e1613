#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pellumar::archive {

// The names that an archive's entries have, so that no later one hides an earlier when they are
// extracted: by the same path, or by a file where another needs a folder. Takes the memory of all
// names. Belongs to one thread.
class TakenNames {
  public:
    // The name itself, which portableName() has made, if an entry of that name can go in.
    [[nodiscard]] bool isFree(std::string_view name, bool isFolder) const;

    // The name with a number in it, or in that of a folder on its way, where it is free.
    [[nodiscard]] std::string freeName(std::string_view name, bool isFolder);

    // An entry of this name is in the archive.
    void add(std::string_view name, bool isFolder);

  private:
    enum class Kind : std::uint8_t { kFile, kFolder };

    // The part of the path that stands for something else; nothing if none does.
    [[nodiscard]] std::optional<std::string_view> conflictOf(std::string_view path,
                                                             bool isFolder) const;
    // The longest folder on the way to the path that stands for something; `end()` if none does,
    // and none of those around it does either.
    using Kinds = std::unordered_map<std::string, Kind>;
    [[nodiscard]] Kinds::const_iterator nearestAbove(std::string_view path) const;

    // Where a path is here, all folders on the way to it are.
    Kinds kinds_;
    // The numbers that freeName() gave last; smaller ones are taken. A name that was made free for
    // what lies below it has a "/" behind it, since a folder will do for that.
    std::unordered_map<std::string, std::size_t> numbers_;
};

}  // namespace pellumar::archive
