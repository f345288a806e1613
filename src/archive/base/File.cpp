#include "archive/base/File.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace pellumar::archive {

File::File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

File& File::operator=(File&& other) noexcept {
    if (this != &other) {
        if (isOpen()) {
            ::close(descriptor_);
        }
        descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
}

File::~File() {
    if (isOpen()) {
        ::close(descriptor_);
    }
}

Result<File> File::openForReading(const std::filesystem::path& path) {
    File file = openAt(AT_FDCWD, path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen()) {
        return systemFailure(ErrorCode::kOpenFailed);
    }
    return file;
}

File File::openAt(int folder, const char* path, int flags, mode_t mode) {
    int descriptor = -1;
    do {
        descriptor = ::openat(folder, path, flags, mode);
    } while (descriptor < 0 && errno == EINTR);
    return File(descriptor);
}

Result<struct stat> File::status() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
        return systemFailure(ErrorCode::kReadFailed);
    }
    return status;
}

Result<std::size_t> File::readAt(std::uint64_t offset, MutableBytes buffer) const {
    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t count = ::pread(descriptor_,
                                      buffer.data() + done,
                                      buffer.size() - done,
                                      static_cast<off_t>(offset + done));
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return systemFailure(ErrorCode::kReadFailed, offset + done);
        }
        if (count == 0) {
            break;
        }
        done += static_cast<std::size_t>(count);
    }
    return done;
}

Result<> File::writeAt(std::uint64_t offset, ByteView bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::pwrite(descriptor_,
                                       bytes.data() + done,
                                       bytes.size() - done,
                                       static_cast<off_t>(offset + done));
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return systemFailure(ErrorCode::kWriteFailed);
        }
        done += static_cast<std::size_t>(count);
    }
    return {};
}

Result<> File::write(ByteView bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(descriptor_, bytes.data() + done, bytes.size() - done);
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            return systemFailure(ErrorCode::kWriteFailed);
        }
        done += static_cast<std::size_t>(count);
    }
    return {};
}

Result<> File::truncate(std::uint64_t size) {
    while (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) {
        if (errno != EINTR) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
    }
    return {};
}

Result<> File::flush() {
    while (::fsync(descriptor_) != 0) {
        // EINVAL: something that has no disk behind it.
        if (errno == EINVAL) {
            break;
        }
        if (errno != EINTR) {
            return systemFailure(ErrorCode::kWriteFailed);
        }
    }
    return {};
}

Result<> File::close() {
    const int descriptor = std::exchange(descriptor_, -1);
    // On Linux the descriptor is gone even after EINTR; closing again could hit another's.
    if (::close(descriptor) != 0 && errno != EINTR) {
        return systemFailure(ErrorCode::kWriteFailed);
    }
    return {};
}

}  // namespace pellumar::archive
