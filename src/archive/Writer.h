#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "archive/base/ByteOutput.h"
#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/NewEntry.h"
#include "archive/base/Warning.h"
#include "archive/base/WriterOptions.h"

namespace pellumar::archive {

class ArchiveWriter;

// A ZIP archive that is being made. What is not closed is discarded: nothing of it stays.
//
// Belongs to one thread at a time, and has threads of its own inside until it is closed.
class Writer {
  public:
    // At a path: until close() has succeeded nothing stands there but what stood there before.
    [[nodiscard]] static Result<Writer> create(const std::filesystem::path& path,
                                               WriterOptions options = {});
    // Into something that is written from its beginning to its end: data descriptors stand behind
    // entries of over 1 MiB. What has gone out cannot be discarded or taken back: after an entry
    // that fails on its way every call fails. `replace` has no meaning.
    [[nodiscard]] static Result<Writer> toOutput(std::unique_ptr<ByteOutput> output,
                                                 WriterOptions options = {});
    // The same into a descriptor, such as that of standard output, from its position on.
    [[nodiscard]] static Result<Writer> toDescriptor(File file, WriterOptions options = {});

    Writer(Writer&&) noexcept;
    Writer& operator=(Writer&&) noexcept;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer();

    // Adds one entry. On an error nothing of it is in the archive, and the next may be added; after
    // kNoSpace or kWriteFailed that will fail as well unless room is made.
    //
    // A "\" in the name, or a beginning like that of a drive ("C:x"), would lead elsewhere on other
    // systems: such a name is made portable, with a warning. kInvalidArgument for a name that is
    // empty, absolute, longer than 65,535 bytes or has a ".." component, for options out of their
    // range, and after close(). kSourceUnreadable, kSourceNotSupported, kSourceChanged of files.
    [[nodiscard]] Result<> add(const NewEntry& entry);

    // How addAll goes on after an entry.
    enum class Next : std::uint8_t { kGoOn, kAgain, kStop };
    // Told how adding the entry at that place went; says how to go on.
    using AfterEach = std::function<Next(std::size_t index, const Result<>& added)>;

    // Adds these entries in this order. Files are read and compressed ahead, on all processors and
    // in bounded memory, so this is the fast way for many. Without `afterEach` it ends at the first
    // error; with one the result is that of the last entry it was told of with kStop.
    [[nodiscard]] Result<> addAll(const std::vector<NewEntry>& entries,
                                  const AfterEach& afterEach = {});

    // Writes the central directory and, at a path, sees everything onto the disk and gives the file
    // its name. Closing again only gives the same result.
    [[nodiscard]] Result<> close();

    // What was odd about what was added.
    [[nodiscard]] const Warnings& warnings() const;

  private:
    explicit Writer(std::unique_ptr<ArchiveWriter> writer);
    // Says which entries will be added, from one of them on.
    void announce(const std::vector<NewEntry>& entries, std::size_t from);

    std::unique_ptr<ArchiveWriter> writer_;
};

}  // namespace pellumar::archive
