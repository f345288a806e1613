#pragma once

#include <string>
#include <vector>

namespace pellumar {

// Patterns of what does not go into an archive. One without a "/" is held against the last part of
// each name, at any depth; one with a "/" against the whole name from its beginning, and there "*"
// and "?" stand for no "/".
class Exclusions {
  public:
    explicit Exclusions(const std::vector<std::string>& patterns);

    // Of an entry's name, without "/" at its end. All below what is covered is left out with it.
    [[nodiscard]] bool cover(const std::string& name) const;

  private:
    std::vector<std::string> ofNames_;
    std::vector<std::string> ofPaths_;
};

}  // namespace pellumar
