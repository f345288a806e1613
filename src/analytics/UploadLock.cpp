#include "analytics/UploadLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pellumar {

UploadLock::UploadLock(const std::filesystem::path& folder) : path_(folder / "upload.lock") {}

UploadLock::~UploadLock() {
    release();
}

bool UploadLock::take() {
    if (file_ >= 0) {
        return true;
    }
    const int file =
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (file < 0) {
        return false;
    }
    if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        ::close(file);
        return false;
    }
    file_ = file;
    return true;
}

void UploadLock::release() {
    if (file_ >= 0) {
        ::close(file_);
        file_ = -1;
    }
}

}  // namespace pellumar
