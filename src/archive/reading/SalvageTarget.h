#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/LinkSafety.h"
#include "archive/base/Salvaging.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/EntryReader.h"

namespace pellumar::archive {

// The folder that salvaged entries go into, one after another, as they are found. Counts them in a
// report. Belongs to one thread.
class SalvageTarget {
  public:
    // All of them outlive the target.
    SalvageTarget(const DestinationTree& tree, const std::stop_token& stop, SalvageReport& report);

    // Makes the folder and those above it.
    [[nodiscard]] Result<> addFolder(const Entry& entry);

    // Reads a file's data and verifies it, and only then lets it stand there. kTooLarge if there is
    // no room for it.
    [[nodiscard]] Result<> addFile(const EntryData& data, EntryReader& reader);

    // Reads a link's target. What becomes of it makeLinks() tells; `data` stays until then.
    [[nodiscard]] Result<> keepLink(const EntryData& data, EntryReader& reader);

    // Makes the links that were kept and are safe: all, or none where one cannot be made, since
    // others may lead through it. `onLost` is told of each that is not made.
    void makeLinks(const std::function<void(const EntryData&, ErrorCode)>& onLost);

    // How much room there is, in bytes.
    [[nodiscard]] std::uint64_t room() const { return tree_.room().bytes; }

  private:
    [[nodiscard]] Result<> makeFolders(std::string_view path);
    [[nodiscard]] bool isFolder(std::string_view path);
    // How many entries had this path before.
    [[nodiscard]] unsigned timesTaken(std::string_view path);

    const DestinationTree& tree_;
    const std::stop_token& stop_;
    SalvageReport& report_;
    FolderCursor cursor_;
    std::string lastFolder_;                           // is there
    std::unordered_map<std::size_t, unsigned> taken_;  // how often, by the path's hash
    std::vector<const EntryData*> links_;
    LinkSafety targets_;
};

}  // namespace pellumar::archive
