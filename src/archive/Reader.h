#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "archive/base/ByteSource.h"
#include "archive/base/DataSink.h"
#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/File.h"
#include "archive/base/Password.h"
#include "archive/base/Warning.h"

namespace pellumar::archive {

class ArchiveReader;
class EntryReader;

// One entry's data, as a stream to be read. Belongs to one thread; its Reader outlives it.
class EntryStream {
  public:
    EntryStream(EntryStream&&) noexcept;
    EntryStream& operator=(EntryStream&&) noexcept;
    EntryStream(const EntryStream&) = delete;
    EntryStream& operator=(const EntryStream&) = delete;
    ~EntryStream();

    // Puts the next bytes into `buffer`, which is not empty, and returns how many: fewer than asked
    // mean nothing, 0 the end. Only at the end is it known that all was right: sizes, checksum and
    // authentication code are errors of the last call. After an error the next says the same.
    [[nodiscard]] Result<std::size_t> read(MutableBytes buffer);

  private:
    friend class Reader;
    explicit EntryStream(std::unique_ptr<EntryReader> reader);

    std::unique_ptr<EntryReader> reader_;
    bool ended_ = false;
    std::optional<Error> error_;
};

// A ZIP archive that is read. It is opened once: what was listed is what is extracted, whatever
// becomes of its name meanwhile.
//
// Opening reads the central directory and refuses nothing that can be listed: each entry says by
// itself what is wrong with it (Entry::fault). Extracting refuses, before anything is written, if
// one of the entries it is about has a fault or contradicts its local header.
//
// Does not change once it is open, so any number of threads may use it.
class Reader {
  public:
    // kOpenFailed, kReadFailed; kNotAnArchive, kTruncated, kDamagedDirectory, kMultipleDisks where
    // there is no directory to be found, or none that can be parsed.
    //
    // Of an archive in several volumes, "name.zip" beside "name.z01" and so on or "name.zip.001"
    // and so on, any volume may be named; kVolumeMissing tells in `entry` the name of one that is
    // not there.
    [[nodiscard]] static Result<Reader> open(const std::filesystem::path& path);
    // A regular file.
    [[nodiscard]] static Result<Reader> open(File file);
    // The bytes stay where they are, unchanged, as long as the Reader.
    [[nodiscard]] static Result<Reader> openMemory(ByteView bytes);
    [[nodiscard]] static Result<Reader> openSource(std::unique_ptr<const ByteSource> source);

    Reader(Reader&&) noexcept;
    Reader& operator=(Reader&&) noexcept;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader();

    // ---- The list, in the order of the central directory

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] const Entry& operator[](std::size_t index) const;

    class Iterator {
      public:
        using iterator_category = std::input_iterator_tag;
        using value_type = Entry;
        using difference_type = std::ptrdiff_t;
        using pointer = const Entry*;
        using reference = const Entry&;

        Iterator() = default;
        const Entry& operator*() const { return (*reader_)[index_]; }
        const Entry* operator->() const { return &**this; }
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
        friend class Reader;
        Iterator(const Reader* reader, std::size_t index) : reader_(reader), index_(index) {}

        const Reader* reader_ = nullptr;
        std::size_t index_ = 0;
    };
    [[nodiscard]] Iterator begin() const { return {this, 0}; }
    [[nodiscard]] Iterator end() const { return {this, size()}; }

    // The entry of this path: of several the last one, which is what extracting takes.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view path) const;
    // The entries of these paths and all below them, in the archive's order, each once.
    // kNoSuchEntry, with the path in `entry`, for one that stands for nothing.
    [[nodiscard]] Result<std::vector<std::size_t>> select(
        std::span<const std::string_view> paths) const;

    // The fault that stands first, whole; nothing if there is none.
    [[nodiscard]] std::optional<Error> firstFault() const;
    // What was odd about the archive when it was opened.
    [[nodiscard]] const Warnings& warnings() const;
    // The archive's comment, in UTF-8 as far as that can be told.
    [[nodiscard]] std::string_view comment() const;

    // Tries the password on the first encrypted entry: kWrongPassword if its check bytes say that
    // it cannot be that entry's. One in 256 (traditional) or 65,536 (AES) wrong ones passes;
    // reading tells then. No error if no entry is encrypted.
    [[nodiscard]] Result<> checkPassword(const Password& password) const;
    // The same on the first of these that is encrypted; others may have another password.
    // kInvalidArgument for an index that is not there, if it is come to.
    [[nodiscard]] Result<> checkPassword(const Password& password,
                                         std::span<const std::size_t> entries) const;

    // ---- One entry; an index that is not there is kInvalidArgument

    // Of `options` password, checksum and the limits count. kEncrypted without a password,
    // kWrongPassword by the check bytes, its fault if it has one; kInvalidArgument of a folder.
    [[nodiscard]] Result<EntryStream> openEntry(std::size_t index,
                                                const ExtractionOptions& options = {}) const;
    // All of a file's data, or a link's target. kOverLimit if it would be over limits.bytes; the
    // size that the archive claims is not allocated ahead.
    [[nodiscard]] Result<std::vector<std::uint8_t>> readEntry(
        std::size_t index,
        const ExtractionOptions& options = {}) const;

    // ---- Many entries

    // Extracts into the folder `to`, which is made if it is not there (its parent has to be). All
    // that the directory and the local headers show is checked before the first byte is written.
    // Files come out with their permissions, less the umask (set-id and sticky bits excepted), and
    // modification times.
    //
    // After an error the entries that were finished stay where they are, and no file stands under
    // the name of one that was not. Of several errors the one of the first entry is told, in so far
    // as the others were reached.
    //
    // Up to eight threads extract, each with a buffer of a little over 1 MiB; while one of the last
    // very large entries is unpacked another thread and 1 MiB write behind it. Methods other than
    // Deflate add their windows, of up to 8 MiB each; larger ones, up to 128 MiB (PPMd: 256 MiB),
    // are used one at a time. Returns when all threads have ended.
    [[nodiscard]] Result<ExtractionReport> extractAll(const std::filesystem::path& to,
                                                      const ExtractionOptions& options = {}) const;
    // The same of the entries at these indices, in any order.
    [[nodiscard]] Result<ExtractionReport> extract(std::span<const std::size_t> entries,
                                                   const std::filesystem::path& to,
                                                   const ExtractionOptions& options = {}) const;

    // Where the data of the entry at an index goes; null to pass it over. An error ends the job.
    using SinkMaker = std::function<Result<std::unique_ptr<DataSink>>(std::size_t index)>;
    // Hands the data of these entries, in this order and on the calling thread, to a sink for each,
    // which is destroyed when its entry is whole. Folders have no data, so no sink is asked for.
    // `existing`, `stripComponents` and `sync` have no meaning here.
    [[nodiscard]] Result<ExtractionReport> extractTo(std::span<const std::size_t> entries,
                                                     const SinkMaker& sinkFor,
                                                     const ExtractionOptions& options = {}) const;

    // Reads every entry to its end, on several threads, writes nothing, and goes on after faults:
    // what is wrong with each, in the archive's order; none if all is well. An error only for what
    // ends the job: kCancelled, kOutOfMemory.
    [[nodiscard]] Result<std::vector<Error>> test(const ExtractionOptions& options = {}) const;

  private:
    explicit Reader(std::unique_ptr<const ArchiveReader> archive);
    [[nodiscard]] Result<> tryPassword(const Password& password, std::size_t index) const;

    std::unique_ptr<const ArchiveReader> archive_;
};

}  // namespace pellumar::archive
