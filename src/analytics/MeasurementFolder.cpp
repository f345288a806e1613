#include "analytics/MeasurementFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <array>
#include <cerrno>
#include <system_error>

namespace pellumar {
namespace {

namespace fs = std::filesystem;

constexpr qint64 kMostBytes = 64 << 10;
constexpr fs::perms kOurs = fs::perms::owner_read | fs::perms::owner_write;

// In this order: a log must not be taken for the next store's. The last two are of earlier
// versions.
constexpr std::array kMeasured = {"usage.db-wal",
                                  "usage.db-shm",
                                  "usage.db-journal",
                                  "usage.db",
                                  "crash"};

bool makePrivate(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    const fs::file_status status = fs::status(folder, error);
    if (error || !fs::is_directory(status)) {
        return false;
    }
    if (status.permissions() != fs::perms::owner_all) {
        fs::permissions(folder, fs::perms::owner_all, error);
    }
    for (fs::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error)) {
        std::error_code ignored;
        if (fs::is_regular_file(each->symlink_status(ignored))) {
            fs::permissions(each->path(), kOurs, ignored);
        }
    }
    return !error;
}

}  // namespace

MeasurementFolder::~MeasurementFolder() {
    if (lock_ >= 0) {
        ::close(lock_);
    }
}

bool MeasurementFolder::hold() {
    if (lock_ >= 0) {
        return true;
    }
    if (!makePrivate(path_)) {
        return false;
    }
    const int file =
        ::open((path_ / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0) {
        lock_ = file;
    } else if (file >= 0) {
        ::close(file);
    }
    return lock_ >= 0;
}

std::optional<QByteArray> MeasurementFolder::readConsent() const {
    const int handle = ::open(consentIn(path_).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (handle < 0) {
        return errno == ENOENT ? std::optional(QByteArray()) : std::nullopt;
    }
    QFile file;
    if (!file.open(handle, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(handle);
        return std::nullopt;
    }
    QByteArray bytes = file.read(kMostBytes);
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    // An empty one is there, and makes no sense.
    return bytes.isEmpty() ? QByteArray("{}") : bytes;
}

bool MeasurementFolder::writeConsent(const QByteArray& json) const {
    QSaveFile file(QFile::decodeName(consentIn(path_).c_str()));
    // Without room, Qt 6.4 commits a file that is empty unless it has been flushed before.
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size() &&
           file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && file.flush() &&
           file.commit();
}

bool MeasurementFolder::clear() const {
    bool isClear = true;
    for (const char* const name : kMeasured) {
        std::error_code error;
        fs::remove(path_ / name, error);
        isClear = isClear && !error;
    }
    return isClear;
}

}  // namespace pellumar
