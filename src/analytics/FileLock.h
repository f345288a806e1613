#pragma once

#include <chrono>
#include <filesystem>

namespace pellumar {

// Lets one process at a time do something. The kernel lets go of it when the process ends, however
// that happens.
class FileLock {
  public:
    // `file` is the lock's own, and stays empty.
    explicit FileLock(std::filesystem::path file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // False if another process holds it and does not let go of it in time, or if the folder cannot
    // be written.
    [[nodiscard]] bool take(std::chrono::milliseconds patience = {});
    void release();

  private:
    const std::filesystem::path path_;
    int file_ = -1;
};

}  // namespace pellumar
