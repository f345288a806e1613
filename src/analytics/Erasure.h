#pragma once

#include <filesystem>
#include <stop_token>

namespace pellumar {

// Sees to it that what was measured in a folder is gone. While it is not, it is owed: an empty file
// in the folder remembers that over restarts, as far as the folder takes one. One thread at a time.
class Erasure {
  public:
    // Owed if that file is there.
    explicit Erasure(std::filesystem::path folder);

    [[nodiscard]] static std::filesystem::path noteIn(const std::filesystem::path& folder);

    // Nothing may be kept or sent as long as it is; perform() is to be tried again.
    [[nodiscard]] bool isOwed() const { return isOwed_; }

    // Empties the store and removes its files: where one way is barred the other may be open. No
    // store of the folder may be open in this process but one that was wiped, as `isWiped` says.
    // `ending` is the database's.
    void perform(bool isWiped, const std::stop_token& ending);

  private:
    [[nodiscard]] bool wipeClosed(const std::stop_token& ending) const;

    const std::filesystem::path folder_;
    bool isOwed_;
};

}  // namespace pellumar
