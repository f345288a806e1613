#pragma once

#include <filesystem>
#include <stop_token>

namespace pellumar {

// Sees to it that what was measured in a folder is gone. While it is not, it is owed: an empty file
// in the folder remembers that over restarts, as far as the folder takes one. One thread at a time.
class Erasure {
  public:
    // Looks whether that file is there.
    explicit Erasure(std::filesystem::path folder);

    [[nodiscard]] static std::filesystem::path noteIn(const std::filesystem::path& folder);

    // Nothing may be kept or sent as long as it is owed, or cannot be seen to be.
    [[nodiscard]] bool mayKeep() const { return debt_ == Debt::kNone; }
    // perform() is to be tried again.
    [[nodiscard]] bool isOwed() const { return debt_ == Debt::kOwed; }

    // Looks for that file again, if it could not be seen whether it is there.
    void look();

    // Empties the store and removes its files: where one way is barred the other may be open. No
    // store of the folder may be open in this process but one that was wiped, as `isWiped` says.
    // `ending` is the database's.
    void perform(bool isWiped, const std::stop_token& ending);

  private:
    enum class Debt { kUnknown, kNone, kOwed };

    [[nodiscard]] bool wipeClosed(const std::stop_token& ending) const;

    const std::filesystem::path folder_;
    Debt debt_ = Debt::kUnknown;
};

}  // namespace pellumar
