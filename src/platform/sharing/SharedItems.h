#pragma once

#include <QList>
#include <QUrl>
#include <filesystem>
#include <string>
#include <tl/expected.hpp>

#include "platform/documents/FileCopy.h"

namespace pellumar {

// Second names for what is handed to other applications by its path. Those may read it long after
// the sheet has gone (the clipboard, the draft of a mail), and the workspace is emptied meanwhile;
// and the user may change it there. What it was when it was handed out is noted on disk, as this
// process may be killed at any moment. Any thread.
class SharedItems {
  public:
    // `folder` is this class's own, and need not exist. It is best on the file system of the items.
    explicit SharedItems(std::filesystem::path folder);

    // $XDG_DATA_HOME/pellumar-zip/Shared, or that in ~/.local/share.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // The items under second names, in their order and called as they are, folders with all that
    // is in them; the contents are copied only where a file system knows no second names. All are
    // in one folder, but for namesakes. What is no file of this machine stays as it is in the list.
    // Takes its time for large folders. After a failure nothing is to be handed out.
    [[nodiscard]] tl::expected<QList<QUrl>, FileCopyError> keep(const QList<QUrl>& items) const;

    // Copies the files that were changed, replaced or added since earlier runs have handed them
    // out, to `into`, which is made for the first, beside what is there; then forgets what those
    // runs have handed out. Returns the copies; a file that was handed out twice is copied once. A
    // single file of the last day stays, if it is not large, as it may still be open somewhere, and
    // what was changed but cannot be copied or looked through stays until it can, as does what is
    // saved while this runs. Takes its time.
    [[nodiscard]] QList<QUrl> recoverChanged(const std::filesystem::path& into) const;

  private:
    const std::filesystem::path folder_;
    const std::string run_;
};

}  // namespace pellumar
