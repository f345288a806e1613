#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/LinkSafety.h"
#include "archive/base/Warning.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/ExtractionPlan.h"

namespace pellumar::archive {

// Makes what frames the files of an extraction: the folders before them, symbolic links and the
// folders' own permissions and times after them. Belongs to one thread.
class FolderMaker {
  public:
    explicit FolderMaker(const DestinationTree& tree) : cursor_(tree) {}

    // Makes the folders, each after the one that holds it. One that stands there already is taken;
    // kAlreadyExists if something else does.
    [[nodiscard]] Result<> makeAll(const std::vector<ExtractionPlan::Folder>& folders);

    // Gives a folder its time, once nothing but folders will be made in it any more, if that is all
    // it lacks. `index` is its place among the folders, `descriptor` leads to it. May be called by
    // several threads at once for different folders, after makeAll() and before makeLinks().
    void restoreEarly(std::size_t index, const Entry& entry, int descriptor);

    // Makes the links with the targets that `targets` has for them: all, or after a failure none.
    // What stands there already is treated as `existing` says, and counted in the report.
    [[nodiscard]] Result<> makeLinks(const std::vector<const EntryData*>& links,
                                     const LinkSafety& targets,
                                     ExistingFiles existing,
                                     ExtractionReport& report);

    // Gives the other folders that makeAll made, and that have an entry, their permissions and
    // times. Until then their owner may write in them, whatever the archive says. What the system
    // refuses becomes a warning.
    void restoreMetadata(const std::vector<ExtractionPlan::Folder>& folders, Warnings& warnings);

  private:
    enum class State : std::uint8_t { kStoodThere, kMade, kRestored };

    // Whether it was made or had been there.
    [[nodiscard]] Result<State> make(const ExtractionPlan::Folder& folder);
    // Returns the path that it has; empty if it was skipped.
    [[nodiscard]] Result<std::string> makeLink(const Entry& entry,
                                               const std::string& target,
                                               ExistingFiles existing);
    // kAlreadyExists if a folder stands where one of the links is to be.
    [[nodiscard]] Result<> checkNoFolder(const std::vector<const EntryData*>& links);
    void removeLink(std::string_view path);
    [[nodiscard]] bool restore(const Entry& entry);
    // Whether mkdir gave it its permissions for good, as the owner keeps all rights.
    [[nodiscard]] static bool hasPermissions(const Entry& entry);

    FolderCursor cursor_;
    std::vector<State> states_;  // of each of the folders
};

}  // namespace pellumar::archive
