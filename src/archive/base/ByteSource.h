#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"
#include "archive/base/File.h"

namespace pellumar::archive {

// Bytes that can be read at any position: what an archive is read from. Write your own to read one
// from anywhere else. Several threads read at once, so readAt() keeps no position.
class ByteSource {
  public:
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;
    virtual ~ByteSource() = default;

    // In bytes; does not change.
    [[nodiscard]] virtual std::uint64_t size() const = 0;

    // Fills `buffer` from `offset`; returns how much, which is less than asked only at the end.
    // kReadFailed, or an error of your own, which whoever reads the archive is given.
    [[nodiscard]] virtual Result<std::size_t> readAt(std::uint64_t offset,
                                                     MutableBytes buffer) const = 0;

    // Where its volumes begin, if it is a split archive in which places are told by the number of a
    // volume and an offset in it; empty otherwise.
    [[nodiscard]] virtual std::span<const std::uint64_t> volumeStarts() const { return {}; }

    // As readAt, but an end before the buffer is full is kTruncated at `offset`.
    [[nodiscard]] Result<> readExactlyAt(std::uint64_t offset, MutableBytes buffer) const;
};

// A regular file, by descriptor.
class FileSource final : public ByteSource {
  public:
    // kNotAnArchive for anything but a regular file: a pipe cannot be read at a position.
    [[nodiscard]] static Result<std::unique_ptr<FileSource>> of(File file);

    [[nodiscard]] std::uint64_t size() const override { return size_; }
    [[nodiscard]] Result<std::size_t> readAt(std::uint64_t offset,
                                             MutableBytes buffer) const override {
        return file_.readAt(offset, buffer);
    }

  private:
    FileSource(File file, std::uint64_t size) : file_(std::move(file)), size_(size) {}

    File file_;
    std::uint64_t size_;
};

// Bytes in memory, which stay there, unchanged, as long as this does.
class MemorySource final : public ByteSource {
  public:
    explicit MemorySource(ByteView bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t size() const override { return bytes_.size(); }
    [[nodiscard]] Result<std::size_t> readAt(std::uint64_t offset,
                                             MutableBytes buffer) const override;

  private:
    ByteView bytes_;
};

}  // namespace pellumar::archive
