#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/File.h"

namespace pellumar::archive {

// A file by the place where it lies, whatever it is called.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// A file or folder on its way into an archive, judged and opened. May be read from several threads
// at once.
class SourceFile {
  public:
    // Not open; only assigning to it makes sense.
    SourceFile() = default;

    // Opens what stands at `path`; symbolic links are followed. kSourceUnreadable,
    // kSourceChanged for a file that is empty by its size and is not (one of /proc), or
    // kSourceNotSupported for anything but a file or folder and for `archive` itself: those are
    // never opened, so nothing waits for a writer's end.
    [[nodiscard]] static Result<SourceFile> open(const std::filesystem::path& path,
                                                 const FileIdentity& archive);

    // The link itself that stands at `path`: its target is the content. Anything else there is
    // opened as by open().
    [[nodiscard]] static Result<SourceFile> openLink(const std::filesystem::path& path,
                                                     const FileIdentity& archive);

    // Of what is in memory: a file, a link of that target, or a folder. The time is now.
    [[nodiscard]] static SourceFile ofMemory(
        EntryType type,
        std::shared_ptr<const std::vector<std::uint8_t>> bytes);

    // What the source was when it was opened. A folder's size is 0.
    [[nodiscard]] bool isFolder() const { return S_ISDIR(status_.st_mode); }
    [[nodiscard]] std::uint64_t size() const;
    [[nodiscard]] const struct stat& status() const { return status_; }

    // Fills `buffer` from `offset`, `readSize` bytes at a time (NewEntry::FromPath), and returns
    // the CRC-32 of the bytes. kSourceUnreadable; kSourceChanged if the file ends before the buffer
    // is full, or if its size or times are not what they were when it was opened: as this is looked
    // at after the bytes, those of all calls belong together.
    [[nodiscard]] Result<std::uint32_t> read(std::uint64_t offset,
                                             MutableBytes buffer,
                                             std::size_t readSize) const;

  private:
    SourceFile(File file, const struct stat& status) : file_(std::move(file)), status_(status) {}

    File file_;
    std::shared_ptr<const std::vector<std::uint8_t>> memory_;  // instead of a file
    struct stat status_ {};
};

}  // namespace pellumar::archive
