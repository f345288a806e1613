#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// The volumes of a split archive, one behind the other. All of them are open as long as it lives.
class VolumeSource final : public ByteSource {
  public:
    // `numbered`: places in the archive are told by the number of a volume and an offset in it
    // (APPNOTE 8.5), rather than as if it were in one piece.
    VolumeSource(std::vector<std::unique_ptr<FileSource>> volumes, bool numbered);

    [[nodiscard]] std::uint64_t size() const override { return size_; }
    [[nodiscard]] Result<std::size_t> readAt(std::uint64_t offset,
                                             MutableBytes buffer) const override;
    [[nodiscard]] std::span<const std::uint64_t> volumeStarts() const override {
        return numbered_ ? std::span<const std::uint64_t>(starts_)
                         : std::span<const std::uint64_t>();
    }

  private:
    std::vector<std::unique_ptr<FileSource>> volumes_;
    std::vector<std::uint64_t> starts_;
    std::uint64_t size_ = 0;
    bool numbered_;
};

// Opens all volumes of the archive that the one at `path` belongs to by its name: "name.z01" and so
// on before "name.zip", or "name.zip.001" and so on. They stand beside it, or beside what it is a
// link to. `error` is why it could not be opened by itself, and comes back if it is no volume.
// kVolumeMissing, with the name in `entry`, for the first that is not there; with `missing` that
// name is put there instead, and those that are there are opened as one piece.
[[nodiscard]] Result<std::unique_ptr<ByteSource>> openVolumes(const std::filesystem::path& path,
                                                              const Error& error,
                                                              std::string* missing = nullptr);

}  // namespace pellumar::archive
