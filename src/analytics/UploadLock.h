#pragma once

#include <filesystem>

namespace pellumar {

// Lets one process at a time send what stands in a folder: two would send everything twice. The
// kernel lets go of it when the process ends, however that happens.
class UploadLock {
  public:
    explicit UploadLock(const std::filesystem::path& folder);
    ~UploadLock();
    UploadLock(const UploadLock&) = delete;
    UploadLock& operator=(const UploadLock&) = delete;

    // False if another process holds it, or if the folder cannot be written.
    [[nodiscard]] bool take();
    void release();

  private:
    std::filesystem::path path_;
    int file_ = -1;
};

}  // namespace pellumar
