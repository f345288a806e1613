#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// An open file, by descriptor. Owns it; moving hands it over. Reads and writes at a position may be
// called from several threads at once; everything else belongs to one thread.
//
// Interrupted and partial system calls are continued inside, so a short count always has a meaning.
class File {
  public:
    // A file without a descriptor; only assigning to it, isOpen() and destroying it make sense.
    File() = default;
    // Takes over an open descriptor.
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    // Closes without a word; call close() first where a lost write matters.
    ~File();

    // Opens for reading without ever waiting (a FIFO does not block) and without becoming a
    // controlling terminal's reader. Follows symbolic links.
    [[nodiscard]] static Result<File> openForReading(const std::filesystem::path& path);

    // As openat(2), begun again where a signal broke in; not open if it failed, with errno.
    [[nodiscard]] static File openAt(int folder, const char* path, int flags, mode_t mode = 0);

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int descriptor() const { return descriptor_; }

    [[nodiscard]] Result<struct stat> status() const;

    // Fills `buffer` from `offset`; returns how much, which is less than asked only at the end of
    // the file.
    [[nodiscard]] Result<std::size_t> readAt(std::uint64_t offset, MutableBytes buffer) const;

    // Writes all of `bytes` at `offset`. After a failure some of them may stand in the file.
    [[nodiscard]] Result<> writeAt(std::uint64_t offset, ByteView bytes);

    // Writes all of `bytes` at the file's own position.
    [[nodiscard]] Result<> write(ByteView bytes);

    // Cuts or extends the file to `size` bytes.
    [[nodiscard]] Result<> truncate(std::uint64_t size);

    // Returns when all that was written is on the disk (fsync); kWriteFailed or kNoSpace otherwise.
    [[nodiscard]] Result<> flush();

    // Closes, and says whether all that was written arrived. Closed afterwards in any case.
    [[nodiscard]] Result<> close();

  private:
    int descriptor_ = -1;
};

}  // namespace pellumar::archive
