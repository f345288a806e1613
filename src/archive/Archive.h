#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "archive/base/Entry.h"
#include "archive/base/EntrySource.h"
#include "archive/base/Error.h"
#include "archive/base/Password.h"
#include "archive/base/Warning.h"

namespace pellumar::archive {

class ArchiveReader;
class ArchiveWriter;

enum class AccessMode : std::uint8_t { kCreate, kReplace, kRead };

enum class CompressionMethod : std::uint8_t { kDeflate };

// A ZIP archive on disk: open for reading its entries, or being made. An Archive that you hold is
// open; there is no other state.
//
// Threads: an object belongs to one thread at a time. An archive that is being made has threads of
// its own inside until it is closed.
class Archive {
  public:
    // kCreate: makes a new file at `path`; kAlreadyExists if something stands there, now or when
    // the archive is closed.
    // kReplace: the same, but takes the place of a file or link that stands there.
    // kRead: opens `path` and reads its central directory whole. The archive's checks that need no
    // entry's data are made here; what they find is an error of `open`, so every entry of an open
    // archive has a safe name.
    [[nodiscard]] static Result<Archive> open(const std::filesystem::path& path, AccessMode mode);

    Archive(Archive&&) noexcept;
    Archive& operator=(Archive&&) noexcept;
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;
    // Of an archive being made that was not closed: nothing of it stays.
    ~Archive();

    // ---- Making an archive

    // Adds the file or folder `base`/`path` as the entry `path`, with its permissions and its
    // modification time. A "\" in it, or a beginning like that of a drive ("C:x"), would lead
    // elsewhere on other systems: such a name is made portable, with a warning. A folder becomes an
    // entry of its own; what is in it is not added. A symbolic link is followed. `bufferSize` (4
    // KiB to 1 MiB; others are taken for the nearest) is the size of one read from the source.
    //
    // On an error nothing of this entry is in the archive, and the next may be added; after
    // kNoSpace or kWriteFailed that will fail as well unless room is made. kInvalidArgument if the
    // archive is open for reading, if `path` is empty, absolute, longer than 65,535 bytes or has a
    // ".." component.
    [[nodiscard]] Result<> addEntry(const std::string& path,
                                    const std::filesystem::path& base,
                                    CompressionMethod method,
                                    std::size_t bufferSize = kDefaultWriteChunkSize);

    // Says which entries the next calls of addEntry will add, in that order: their sources are read
    // and compressed in the background from now on, in bounded memory. A promise that is not kept
    // costs the work done ahead and nothing else; the bytes of the archive are the same with or
    // without this call. Replaces what an earlier call said.
    void compressAhead(std::vector<EntrySource> next,
                       std::size_t bufferSize = kDefaultWriteChunkSize);

    // Writes the central directory, sees everything onto the disk, and gives the file its name:
    // until this has succeeded nothing stands at the path but what stood there before, however the
    // process ends. Afterwards every operation gives kInvalidArgument. Closing twice, or an archive
    // open for reading, does nothing.
    [[nodiscard]] Result<> close();

    // ---- Reading an archive

    class Iterator {
      public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = Entry;

        Iterator() = default;
        Entry operator*() const { return (*archive_)[index_]; }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++index_;
            return before;
        }
        friend bool operator==(const Iterator&, const Iterator&) = default;

      private:
        friend class Archive;
        Iterator(const Archive* archive, std::size_t index) : archive_(archive), index_(index) {}

        const Archive* archive_ = nullptr;
        std::size_t index_ = 0;
    };

    // The entries in the order of the central directory; none while an archive is made.
    [[nodiscard]] Iterator begin() const { return {this, 0}; }
    [[nodiscard]] Iterator end() const { return {this, size()}; }
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] Entry operator[](std::size_t index) const;

    // Holds the password against the check bytes of the first encrypted entry: kWrongPassword if it
    // cannot be that entry's. One in 256 (traditional) or 65,536 (AES) wrong ones passes; reading
    // tells then. No error if no entry is encrypted.
    [[nodiscard]] Result<> checkPassword(const Password& password) const;

    // What was odd about the archive when it was opened; about what was added, while it is made.
    [[nodiscard]] const Warnings& warnings() const;

  private:
    explicit Archive(std::unique_ptr<ArchiveReader> reader);
    explicit Archive(std::unique_ptr<ArchiveWriter> writer);

    std::unique_ptr<ArchiveReader> reader_;
    std::unique_ptr<ArchiveWriter> writer_;
};

// How an extraction went that was not refused: clean, or with warnings.
struct UnzipReport {
    std::size_t entries = 0;
    std::uint64_t bytes = 0;
    Warnings warnings;
};

// Extracts the archive `at` into the folder `to`, which is made if it is not there (its parent must
// be). Nothing that stands in `to` is overwritten: that is kAlreadyExists.
//
// All that the directory shows is checked before the first byte is written. Files come out with
// their permissions, less the umask (set-id and sticky bits excepted), and modification times. With
// `skipCRC32` the checksums are not verified.
//
// Encrypted entries (traditionally, or by WinZip's AES) need `password`: without it kEncrypted, and
// kWrongPassword as their check bytes tell, before anything is written. An archive can be opened
// and listed without.
//
// After an error the entries that were finished stay where they are, and no file stands under the
// name of one that was not. Of several errors the one of the first entry in the archive is told, in
// so far as the others were reached.
//
// Up to eight threads extract, each with a buffer of a little over 1 MiB; while one of the last
// very large entries is unpacked another thread and 1 MiB write behind it. Methods other than
// Deflate add their windows, of up to 8 MiB each; larger ones, up to 128 MiB (PPMd: 256 MiB), are
// used one at a time. Returns when all threads have ended.
[[nodiscard]] Result<UnzipReport> unzipItem(const std::filesystem::path& at,
                                            const std::filesystem::path& to,
                                            bool skipCRC32 = false,
                                            const Password* password = nullptr);

}  // namespace pellumar::archive
