#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "archive/base/Entry.h"
#include "archive/base/EntrySource.h"
#include "archive/base/Error.h"
#include "archive/base/NewEntry.h"
#include "archive/base/Warning.h"
#include "archive/writing/PendingFile.h"

namespace pellumar::archive {

// The making side of Archive; see there for the contract of each operation.
class ArchiveWriter {
  public:
    // What becomes an entry: what stands at `file`, or the bytes of `memory`.
    struct Source {
        std::string name;
        std::filesystem::path file;
        // Of a symbolic link at `file` the link itself.
        bool linkAsLink = false;
        // A file's content or a link's target, as `memoryType` says; that of a folder is empty.
        std::shared_ptr<const std::vector<std::uint8_t>> memory;
        EntryType memoryType = EntryType::kFile;
        EntryOptions options;

        Source() = default;
        Source(std::string entryName, std::filesystem::path path)
            : name(std::move(entryName)), file(std::move(path)) {}
        explicit Source(const EntrySource& source);

        // Whether one can be taken for the other when it is compressed.
        friend bool operator==(const Source& one, const Source& other);
    };

    // `threads` compress at once; 0 means as many as the machine has, up to eight. The bytes of the
    // archive do not depend on it.
    [[nodiscard]] static Result<std::unique_ptr<ArchiveWriter>>
    create(const std::filesystem::path& path, PendingFile::Existing existing, unsigned threads = 0);

    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;
    ~ArchiveWriter();

    [[nodiscard]] Result<> addEntry(const Source& source, std::size_t bufferSize);
    void compressAhead(std::vector<Source> next, std::size_t bufferSize);
    [[nodiscard]] Result<> close();
    [[nodiscard]] const Warnings& warnings() const;

  private:
    class State;
    explicit ArchiveWriter(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace pellumar::archive
