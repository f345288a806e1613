#pragma once

#include <QList>
#include <QUrl>
#include <filesystem>
#include <string>

namespace pellumar {

// Second names for what is handed to other applications by its path. Those may read it long after
// the sheet has gone (the clipboard, the draft of a mail), and the workspace is emptied meanwhile.
// Any thread.
class SharedItems {
  public:
    // `folder` is this class's own, and need not exist. It is best on the file system of the items.
    explicit SharedItems(std::filesystem::path folder);

    // $XDG_DATA_HOME/pellumar-zip/Shared, or that in ~/.local/share.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // The items under second names, in their order and called as they are, folders with all that
    // is in them; the contents are not copied. What cannot have one (on another file system, no
    // file of this machine) stays as it is in the list. Takes its time for large folders.
    [[nodiscard]] QList<QUrl> keep(const QList<QUrl>& items) const;

    // Removes the second names that earlier runs have given. Takes its time.
    void forgetEarlier() const;

  private:
    const std::filesystem::path folder_;
    const std::string run_;
};

}  // namespace pellumar
