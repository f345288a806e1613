#include "analytics/MeasurementFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <array>
#include <system_error>

namespace pellumar {
namespace {

namespace fs = std::filesystem;

constexpr qint64 kMostBytes = 64 << 10;
// In this order: a log must not be taken for the next store's.
constexpr std::array kMeasured = {"usage.db-wal",
                                  "usage.db-shm",
                                  "usage.db-journal",
                                  "usage.db",
                                  "crash"};

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
    std::error_code error;
    if (fs::create_directories(path_, error); !error) {
        fs::permissions(path_, fs::perms::owner_all, error);
    }
    if (error) {
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
    const fs::path path = consentIn(path_);
    std::error_code error;
    if (fs::symlink_status(path, error).type() == fs::file_type::not_found) {
        return QByteArray();
    }
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.read(kMostBytes);
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    // An empty one is there, and makes no sense.
    return bytes.isEmpty() ? QByteArray("{}") : bytes;
}

bool MeasurementFolder::writeConsent(const QByteArray& json) const {
    QSaveFile file(QFile::decodeName(consentIn(path_).c_str()));
    // Without room, Qt 6.4 commits a file that is empty unless it has been flushed before.
    return file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.flush() &&
           file.commit();
}

bool MeasurementFolder::clear(const fs::path& folder) {
    bool isClear = true;
    for (const char* const name : kMeasured) {
        std::error_code error;
        fs::remove(folder / name, error);
        isClear = isClear && !error;
    }
    return isClear;
}

}  // namespace pellumar
