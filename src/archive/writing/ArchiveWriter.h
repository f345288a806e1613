#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "archive/base/ByteOutput.h"
#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/NewEntry.h"
#include "archive/base/Warning.h"
#include "archive/base/WriterOptions.h"
#include "archive/writing/ArchiveOutput.h"
#include "archive/writing/SourceFile.h"

namespace pellumar::archive {

// What stands behind Writer; see there for the contract of each operation.
class ArchiveWriter {
  public:
    // What becomes an entry: what stands at `file`, or the bytes of `memory`.
    struct Source {
        std::string name;
        std::filesystem::path file;
        // Of a symbolic link at `file` the link itself.
        bool linkAsLink = false;
        std::size_t readSize = kDefaultWriteChunkSize;
        // A file's content or a link's target, as `memoryType` says; that of a folder is empty.
        std::shared_ptr<const std::vector<std::uint8_t>> memory;
        EntryType memoryType = EntryType::kFile;
        EntryOptions options;

        Source() = default;
        Source(std::string entryName, std::filesystem::path path)
            : name(std::move(entryName)), file(std::move(path)) {}

        // Whether the data of what was found there goes in as it is.
        [[nodiscard]] bool isStored(const struct stat& found) const;

        // Whether one can be taken for the other when it is compressed.
        friend bool operator==(const Source& one, const Source& other);
    };

    // Into a file that takes its name when it is whole.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveWriter>> create(
        const std::filesystem::path& path,
        WriterOptions options);
    // Into an output, which is `identity` where it is a file.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveWriter>>
    create(std::unique_ptr<ByteOutput> output, const FileIdentity& identity, WriterOptions options);

    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;
    ~ArchiveWriter();

    [[nodiscard]] Result<> addEntry(const Source& source);
    // Of what the stream gives; `source` says all else.
    [[nodiscard]] Result<> addStream(const Source& source, const NewEntry::Stream& stream);
    void compressAhead(std::vector<Source> next);
    // How many entries will come, for the progress.
    void expectEntries(std::size_t count);
    [[nodiscard]] Result<> close();
    [[nodiscard]] const Warnings& warnings() const;

  private:
    class State;
    explicit ArchiveWriter(std::unique_ptr<State> state);
    [[nodiscard]] static Result<std::unique_ptr<ArchiveWriter>> begin(ArchiveOutput output,
                                                                      const FileIdentity& identity,
                                                                      WriterOptions options);

    std::unique_ptr<State> state_;
};

}  // namespace pellumar::archive
