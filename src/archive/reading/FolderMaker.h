#pragma once

#include <vector>

#include "archive/base/Error.h"
#include "archive/base/Warning.h"
#include "archive/reading/DestinationTree.h"
#include "archive/reading/ExtractionPlan.h"
#include "archive/reading/LinkSafety.h"

namespace pellumar::archive {

// Makes what frames the files of an extraction: the folders before them, symbolic links and the
// folders' own permissions and times after them. Belongs to one thread.
class FolderMaker {
  public:
    explicit FolderMaker(const DestinationTree& tree) : tree_(tree), cursor_(tree) {}

    // Makes the folders, each after the one that holds it. One that stands there already is taken;
    // kAlreadyExists if something else does.
    [[nodiscard]] Result<> makeAll(const std::vector<ExtractionPlan::Folder>& folders);

    // Makes the links with the targets that `targets` has for them.
    [[nodiscard]] Result<> makeLinks(const std::vector<const EntryData*>& links,
                                     const LinkSafety& targets);

    // Gives the folders that makeAll made, and that have an entry, their permissions and times.
    // Until then their owner may write in them, whatever the archive says. What the system refuses
    // becomes a warning.
    void restoreMetadata(const std::vector<ExtractionPlan::Folder>& folders, Warnings& warnings);

  private:
    // Whether it was made, and had not been there.
    [[nodiscard]] Result<bool> make(const ExtractionPlan::Folder& folder);
    [[nodiscard]] Result<> makeLink(const Entry& entry, const std::string& target);
    [[nodiscard]] bool restore(const Entry& entry);

    const DestinationTree& tree_;
    FolderCursor cursor_;
    std::vector<bool> made_;  // for each of the folders
};

}  // namespace pellumar::archive
