#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pellumar::archive {

// What was odd about an archive that was taken all the same.
enum class WarningCode : std::uint8_t {
    kBytesBeforeArchive,
    kBytesAfterArchive,
    kDuplicatePath,        // an earlier entry of this path was passed over for a later one
    kLegacyCharset,        // the name was not UTF-8 and was read by a vote over all names
    kSpecialFile,          // a device, FIFO or socket; its data came out as a regular file
    kSetIdBitsDropped,     // set-user-id, set-group-id or sticky
    kMetadataNotRestored,  // the system refused its time or permissions
    kUnlistedEntry,        // an entry that the directory does not list stands in a gap
    kNameMadePortable,     // "\" or a drive in front became letters that look like it
    kRenamed               // another entry had the name: it has one of its own
};

struct Warning {
    WarningCode code = WarningCode::kBytesBeforeArchive;
    std::string entry;
    std::uint64_t offset = 0;

    // One line for a log or a terminal: what was odd, entry and offset.
    [[nodiscard]] std::string describe() const;

    friend bool operator==(const Warning&, const Warning&) = default;
};

[[nodiscard]] std::string_view describe(WarningCode code);

// Warnings in the order they came up: the first kMostKept of them, and how many there were, so that
// an archive of a million oddities needs no memory for them. Belongs to one thread.
class Warnings {
  public:
    static constexpr std::size_t kMostKept = 100;

    void add(WarningCode code, std::string_view entry = {}, std::uint64_t offset = 0);
    void add(const Warnings& others);

    [[nodiscard]] bool empty() const { return count_ == 0; }
    [[nodiscard]] std::uint64_t count() const { return count_; }
    [[nodiscard]] const std::vector<Warning>& kept() const { return kept_; }

  private:
    std::vector<Warning> kept_;
    std::uint64_t count_ = 0;
};

}  // namespace pellumar::archive
