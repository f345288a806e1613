#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "archive/base/ByteOutput.h"
#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/writing/PendingFile.h"

namespace pellumar::archive {

// The archive as it grows, behind a buffer, so that many small pieces cost one system call. Belongs
// to one thread.
//
// After a failed call everything appended by the earlier, successful calls is still there, at its
// place or in the buffer; rewind() takes away the rest.
class ArchiveOutput {
  public:
    // Takes over an empty file. It goes with this unless close() has succeeded.
    explicit ArchiveOutput(PendingFile file);

    // Takes over an output in which nothing can be written over or taken back. Once something had
    // to be, every call fails with kWriteFailed.
    explicit ArchiveOutput(std::unique_ptr<ByteOutput> output);

    // Where the next byte goes.
    [[nodiscard]] std::uint64_t position() const { return written_ + buffer_.size(); }

    // Whether overwrite() may be called, however much was appended since.
    [[nodiscard]] bool canOverwrite() const { return file_.has_value(); }

    [[nodiscard]] Result<> append(ByteView bytes);

    // Writes over bytes of one earlier append.
    [[nodiscard]] Result<> overwrite(std::uint64_t position, ByteView bytes);

    // Takes away all from `position` on, which is at most position(). Also to be called after a
    // failed append, whose bytes may stand in part behind the end.
    void rewind(std::uint64_t position);

    // Writes out the buffer and gives the file its name, see PendingFile::commit. Nothing may
    // follow.
    [[nodiscard]] Result<> close();

  private:
    [[nodiscard]] Result<> flush();
    [[nodiscard]] Result<> write(ByteView bytes);

    // One of the two.
    std::optional<PendingFile> file_;
    std::unique_ptr<ByteOutput> output_;
    std::vector<std::uint8_t> buffer_;
    std::uint64_t written_ = 0;  // what is behind the buffer of position()
    bool rewound_ = false;       // so that bytes may stand behind
    bool failed_ = false;        // `output_` holds what should not be there
};

}  // namespace pellumar::archive
