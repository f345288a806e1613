#pragma once

#include <filesystem>

namespace pellumar {

// A hidden folder of our own among the user's, beside the places of copies and so on their file
// system. What is still in it goes with it.
//
// A process that is killed cannot remove it. So its path is noted on disk before it is made, in a
// file that is locked as long as the folder is in use, and the next launch removes it. Where no
// note can be written it is made all the same. For threads that may block.
class StagingFolder {
  public:
    // In `parent`; `notes` is this class's own folder, and need not exist.
    StagingFolder(const std::filesystem::path& parent, const std::filesystem::path& notes);
    ~StagingFolder();
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    // $XDG_DATA_HOME/pellumar-zip/Savings, or that in ~/.local/share.
    [[nodiscard]] static std::filesystem::path standardNotes();

    // Removes the folders that are noted, but not in use in any process. What cannot be removed
    // now, or is on a medium that is not there, stays noted.
    static void removeLeft(const std::filesystem::path& notes);

    // Empty if it could not be made; errno tells why, until the next call that sets it.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
    std::filesystem::path note_;
    // Of the note; -1 without one.
    int lock_ = -1;
};

}  // namespace pellumar
