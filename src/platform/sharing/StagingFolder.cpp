#include "platform/sharing/StagingFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QUuid>
#include <array>
#include <cerrno>
#include <climits>
#include <string>
#include <system_error>
#include <vector>

#include "platform/UserFolders.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrefix = ".pellumar-zip-";

// Returns when the names in it are on the disk, as far as its file system can tell.
void flushFolder(const fs::path& folder) {
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number >= 0) {
        static_cast<void>(::fsync(number));
        ::close(number);
    }
}

// A locked file that holds the path, flushed with the names that lead to it; -1 if it cannot be
// made.
int writeNote(const fs::path& note, const std::string& path) {
    std::error_code ignored;
    fs::path oldest = note.parent_path();
    while (oldest.has_relative_path() && !fs::exists(oldest, ignored)) {
        oldest = oldest.parent_path();
    }
    fs::create_directories(note.parent_path(), ignored);
    const int number = ::open(note.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (number < 0) {
        return number;
    }
    // Whoever looks for what is left may hold it for a moment: it is empty, and left alone.
    const bool isWritten =
        ::flock(number, LOCK_EX) == 0 &&
        ::write(number, path.data(), path.size()) == static_cast<ssize_t>(path.size()) &&
        ::fsync(number) == 0;
    if (!isWritten) {
        ::unlink(note.c_str());
        ::close(number);
        return -1;
    }
    flushFolder(note.parent_path());
    for (fs::path each = note.parent_path(); each != oldest; each = each.parent_path()) {
        flushFolder(each.parent_path());
    }
    return number;
}

std::string readNote(int number) {
    std::array<char, PATH_MAX> text{};
    const ssize_t count = ::read(number, text.data(), text.size());
    return count > 0 ? std::string(text.data(), static_cast<std::size_t>(count)) : std::string();
}

// Whether nothing of it is left; only what can have been made here is touched.
bool removeNoted(const fs::path& folder) {
    std::error_code failure;
    if (!folder.is_absolute() || !folder.filename().string().starts_with(kPrefix)) {
        return false;
    }
    // A medium may come back, and the folder with it.
    if (!fs::is_directory(folder.parent_path(), failure)) {
        return false;
    }
    const fs::file_status status = fs::symlink_status(folder, failure);
    if (fs::is_directory(status)) {
        fs::remove_all(folder, failure);
        return !failure;
    }
    return status.type() == fs::file_type::not_found;
}

}  // namespace

StagingFolder::StagingFolder(const fs::path& parent, const fs::path& notes) {
    const std::string id = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    std::error_code unknown;
    const fs::path path = fs::absolute(parent / (kPrefix + id), unknown);
    note_ = notes / id;
    lock_ = writeNote(note_, path);
    if (::mkdir(path.c_str(), 0700) == 0) {
        path_ = path;
    }
}

StagingFolder::~StagingFolder() {
    std::error_code failure;
    if (!path_.empty()) {
        fs::remove_all(path_, failure);
    }
    if (lock_ >= 0) {
        // What could not be removed is tried again at the next launch.
        if (!failure) {
            ::unlink(note_.c_str());
        }
        ::close(lock_);
    }
}

fs::path StagingFolder::standardNotes() {
    return UserFolders::data("Savings");
}

void StagingFolder::removeLeft(const fs::path& notes) {
    std::vector<fs::path> found;
    std::error_code failure;
    fs::directory_iterator each(notes, failure);
    for (; !failure && each != fs::directory_iterator(); each.increment(failure)) {
        found.push_back(each->path());
    }
    for (const fs::path& note : found) {
        const int number = ::open(note.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (number < 0) {
            continue;
        }
        if (::flock(number, LOCK_EX | LOCK_NB) == 0 && removeNoted(readNote(number))) {
            ::unlink(note.c_str());
        }
        ::close(number);
    }
}

}  // namespace pellumar
