#include "analytics/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>
#include <utility>

namespace pellumar {

FileLock::FileLock(std::filesystem::path file) : path_(std::move(file)) {}

FileLock::~FileLock() {
    release();
}

bool FileLock::take(std::chrono::milliseconds patience) {
    if (file_ >= 0) {
        return true;
    }
    const int file =
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (file < 0) {
        return false;
    }
    constexpr std::chrono::milliseconds kStep(1);
    while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (patience <= patience.zero()) {
            ::close(file);
            return false;
        }
        std::this_thread::sleep_for(kStep);
        patience -= kStep;
    }
    file_ = file;
    return true;
}

void FileLock::release() {
    if (file_ >= 0) {
        ::close(file_);
        file_ = -1;
    }
}

}  // namespace pellumar
