#include "platform/documents/FileCopy.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include "platform/documents/FileNames.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// Between two questions whether to go on.
constexpr std::size_t kStep = 4 << 20;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    // A file is done when this has succeeded.
    [[nodiscard]] bool close() { return ::close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

std::error_code lastError() {
    return {errno, std::generic_category()};
}

std::error_code toldToStop() {
    return make_error_code(std::errc::operation_canceled);
}

// Writes all of it, or tells why not.
std::error_code writeAll(int to, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(to, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return lastError();
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return {};
}

// Copies the next step by way of our memory: the bytes, 0 at the end.
tl::expected<std::size_t, std::error_code> copyStep(int from, int to, std::string& buffer) {
    buffer.resize(kStep);
    ssize_t count = -1;
    do {
        count = ::read(from, buffer.data(), buffer.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        return tl::unexpected(lastError());
    }
    const auto size = static_cast<std::size_t>(count);
    if (const std::error_code failure = writeAll(to, std::string_view(buffer).substr(0, size))) {
        return tl::unexpected(failure);
    }
    return size;
}

std::error_code copyBytes(int from, int to, const FileCopyProgress& progress) {
    if (::ioctl(to, FICLONE, from) == 0) {
        struct stat status {};
        const bool isKnown = ::fstat(to, &status) == 0;
        const bool goesOn = progress(isKnown ? static_cast<std::uint64_t>(status.st_size) : 0);
        return goesOn ? std::error_code() : toldToStop();
    }
    std::string buffer;
    // Not all pairs of file systems copy by themselves; where one stops, we go on.
    bool isDirect = true;
    while (true) {
        const ssize_t count =
            isDirect ? ::copy_file_range(from, nullptr, to, nullptr, kStep, 0) : -1;
        isDirect = count > 0;
        std::size_t copied = isDirect ? static_cast<std::size_t>(count) : 0;
        if (!isDirect) {
            const auto step = copyStep(from, to, buffer);
            if (!step || *step == 0) {
                return step ? std::error_code() : step.error();
            }
            copied = *step;
        }
        if (!progress(copied)) {
            return toldToStop();
        }
    }
}

std::error_code copyFile(const fs::path& from,
                         const fs::path& to,
                         const FileCopyProgress& progress) {
    // A pipe that took its name meanwhile must not hold us up.
    const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!source.isOpen() || ::fstat(source.number(), &status) != 0) {
        return lastError();
    }
    if (!S_ISREG(status.st_mode)) {
        return make_error_code(std::errc::invalid_argument);
    }
    const mode_t mode = (status.st_mode & 0777) | S_IWUSR;
    Descriptor target(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!target.isOpen()) {
        return lastError();
    }
    if (const std::error_code failure = copyBytes(source.number(), target.number(), progress)) {
        return failure;
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    // A file system without times has a copy all the same.
    static_cast<void>(::futimens(target.number(), times));
    return target.close() ? std::error_code() : lastError();
}

// When all is in the folder, as that changes its time. A file system without permissions or times
// has a copy all the same.
void copyFolderAttributes(const fs::path& from, const fs::path& to) {
    struct stat status {};
    if (::stat(from.c_str(), &status) == 0) {
        static_cast<void>(::chmod(to.c_str(), (status.st_mode & 0777) | S_IRWXU));
        const timespec times[] = {status.st_atim, status.st_mtim};
        static_cast<void>(::utimensat(AT_FDCWD, to.c_str(), times, 0));
    }
}

tl::expected<void, FileCopyError> copyInto(const fs::path& from,
                                           const fs::path& to,
                                           const FileCopyProgress& progress) {
    std::error_code failure;
    const fs::file_status status = fs::symlink_status(from, failure);
    if (fs::is_symlink(status)) {
        fs::copy_symlink(from, to, failure);
    } else if (fs::is_directory(status)) {
        if (!fs::create_directory(to, failure) && !failure) {
            failure = make_error_code(std::errc::file_exists);
        }
        fs::directory_iterator each;
        if (!failure) {
            each = fs::directory_iterator(from, failure);
        }
        for (; !failure && each != fs::directory_iterator(); each.increment(failure)) {
            auto copied = copyInto(each->path(), to / each->path().filename(), progress);
            if (!copied) {
                return copied;
            }
        }
        if (!failure) {
            copyFolderAttributes(from, to);
        }
    } else if (fs::is_regular_file(status)) {
        failure = copyFile(from, to, progress);
    }
    return failure ? tl::expected<void, FileCopyError>(tl::unexpect, FileCopyError{from, failure})
                   : tl::expected<void, FileCopyError>();
}

}  // namespace

bool shareBlocks(int from, const fs::path& to) {
    struct stat status {};
    if (::fstat(from, &status) != 0) {
        return false;
    }
    const mode_t mode = (status.st_mode & 0777) | S_IWUSR;
    Descriptor target(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!target.isOpen()) {
        return false;
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    if (::ioctl(target.number(), FICLONE, from) == 0 && ::futimens(target.number(), times) == 0 &&
        target.close()) {
        return true;
    }
    std::error_code ignored;
    fs::remove(to, ignored);
    return false;
}

tl::expected<void, FileCopyError> copyTree(const fs::path& from,
                                           const fs::path& to,
                                           const FileCopyProgress& progress) {
    std::error_code failure;
    // What was picked may be a link; what is meant is the thing behind it.
    const fs::path original = fs::canonical(from, failure);
    const fs::file_status status = failure ? fs::file_status() : fs::status(original, failure);
    if (!failure && !fs::is_directory(status) && !fs::is_regular_file(status)) {
        failure = make_error_code(std::errc::invalid_argument);
    }
    std::error_code unknown;
    const fs::file_status there = fs::symlink_status(to, unknown);
    if (!failure && there.type() != fs::file_type::not_found) {
        failure = fs::exists(there) ? make_error_code(std::errc::file_exists) : unknown;
    }
    const fs::path inside = to.lexically_relative(original);
    if (!failure && !inside.empty() && *inside.begin() != "..") {
        failure = make_error_code(std::errc::invalid_argument);
    }
    if (failure) {
        return tl::unexpected(FileCopyError{from, failure});
    }
    auto copied = copyInto(original, to, progress);
    if (!copied) {
        const FileCopyError& error = copied.error();
        // What somebody else put there since we looked is not ours to remove.
        const bool isOurs = error.path != original || error.reason != std::errc::file_exists;
        if (isOurs) {
            fs::remove_all(to, failure);
        }
    }
    return copied;
}

std::uint64_t treeSize(const fs::path& path) {
    std::error_code failure;
    if (fs::is_regular_file(path, failure)) {
        const std::uintmax_t size = fs::file_size(path, failure);
        return failure ? 0 : size;
    }
    std::uint64_t total = 0;
    fs::recursive_directory_iterator each(path, failure);
    for (; !failure && each != fs::recursive_directory_iterator(); each.increment(failure)) {
        std::error_code unknown;
        if (each->is_regular_file(unknown) && !each->is_symlink(unknown)) {
            const std::uintmax_t size = each->file_size(unknown);
            total += unknown ? 0 : size;
        }
    }
    return total;
}

fs::path freePath(const fs::path& folder, const fs::path& name) {
    fs::path path = folder / name;
    std::error_code unknown;
    for (int number = 2; fs::exists(fs::symlink_status(path, unknown)); ++number) {
        path = folder / numberedName(name.string(), number);
    }
    return path;
}

}  // namespace pellumar
