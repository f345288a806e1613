#include "platform/sharing/SharedItems.h"

#include <sys/stat.h>

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QMap>
#include <QSaveFile>
#include <QUuid>
#include <chrono>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/UserFolders.h"
#include "platform/sharing/ItemSaver.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// Beside the numbered folders in which the items of one sharing are.
constexpr const char* kNote = "note";
constexpr std::chrono::hours kMayBeOpen(24);

// What each file was, by its path below the folder of the sharing.
using Note = QMap<QByteArray, QByteArray>;

// A folder may be named with a slash at its end.
fs::path plainPath(const fs::path& path) {
    return path.has_filename() ? path : path.parent_path();
}

tl::expected<void, FileCopyError> giveSecondName(const fs::path& item, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    constexpr fs::copy_options kOptions = fs::copy_options::recursive |
                                          fs::copy_options::create_hard_links |
                                          fs::copy_options::copy_symlinks;
    // Elsewhere a link could lead elsewhere.
    if (!error && !fs::is_symlink(item, error)) {
        fs::copy(item, to, kOptions, error);
        if (!error) {
            return {};
        }
        std::error_code ignored;
        fs::remove_all(to, ignored);
    }
    return copyTree(item, to, [](std::uint64_t /*bytes*/) { return true; });
}

std::string newName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

std::vector<fs::path> childrenOf(const fs::path& folder) {
    std::vector<fs::path> children;
    std::error_code ignored;
    fs::directory_iterator each(folder, ignored);
    for (; !ignored && each != fs::directory_iterator(); each.increment(ignored)) {
        children.push_back(each->path());
    }
    return children;
}

// Size, time of change and number: who writes a new file and renames it changes the last at least.
Note stateOf(const fs::path& sharing) {
    Note note;
    std::error_code ignored;
    fs::recursive_directory_iterator each(sharing, ignored);
    for (; !ignored && each != fs::recursive_directory_iterator(); each.increment(ignored)) {
        const std::string name = each->path().lexically_relative(sharing);
        struct stat status {};
        if (name != kNote && ::lstat(each->path().c_str(), &status) == 0 &&
            S_ISREG(status.st_mode)) {
            note[QByteArray::fromStdString(name)] =
                QByteArray::number(qint64{status.st_size}) + ' ' +
                QByteArray::number(qint64{status.st_mtim.tv_sec}) + ' ' +
                QByteArray::number(qint64{status.st_mtim.tv_nsec}) + ' ' +
                QByteArray::number(quint64{status.st_ino});
        }
    }
    return note;
}

bool writeNote(const fs::path& sharing) {
    QSaveFile file(QString::fromStdString(sharing / kNote));
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&file);
    stream << stateOf(sharing);
    return file.commit();
}

// Empty if it was not written to its end: then nothing was handed out.
Note readNote(const fs::path& sharing) {
    QFile file(QString::fromStdString(sharing / kNote));
    Note note;
    if (file.open(QIODevice::ReadOnly)) {
        QDataStream stream(&file);
        stream >> note;
    }
    return note;
}

// What editors leave beside their files.
bool isByTheWay(const QByteArray& path) {
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return name.startsWith('.') || name.endsWith('~');
}

QList<QUrl> changedIn(const fs::path& sharing) {
    QList<QUrl> changed;
    const Note before = readNote(sharing);
    const Note now = before.isEmpty() ? before : stateOf(sharing);
    for (auto each = now.begin(); each != now.end(); ++each) {
        const bool isNew = !before.contains(each.key());
        if (isNew ? !isByTheWay(each.key()) : before[each.key()] != each.value()) {
            changed.append(fileUrl(sharing / each.key().toStdString()));
        }
    }
    return changed;
}

// A single file, not too large to be left lying about.
bool mayBeOpen(const fs::path& sharing) {
    constexpr qint64 kLargest = 64 << 20;
    std::error_code unknown;
    const fs::file_time_type noted = fs::last_write_time(sharing / kNote, unknown);
    const Note note = readNote(sharing);
    return !unknown && note.size() == 1 &&
           note.first().left(note.first().indexOf(' ')).toLongLong() <= kLargest &&
           fs::file_time_type::clock::now() - noted < kMayBeOpen;
}

}  // namespace

SharedItems::SharedItems(fs::path folder) : folder_(std::move(folder)), run_(newName()) {}

fs::path SharedItems::standardFolder() {
    return UserFolders::data("Shared");
}

tl::expected<QList<QUrl>, FileCopyError> SharedItems::keep(const QList<QUrl>& items) const {
    const fs::path sharing = folder_ / run_ / newName();
    QList<QUrl> kept;
    // Two may be called the same.
    QHash<QByteArray, int> namesakes;
    for (const QUrl& item : items) {
        const std::optional<fs::path> path = localPath(item);
        if (!path) {
            kept.append(item);
            continue;
        }
        const fs::path name = plainPath(*path).filename();
        const int number = namesakes[QByteArray::fromStdString(name)]++;
        const fs::path place = sharing / std::to_string(number) / name;
        if (const auto given = giveSecondName(plainPath(*path), place); !given) {
            return tl::unexpected(given.error());
        }
        kept.append(fileUrl(place));
    }
    if (!namesakes.isEmpty() && !writeNote(sharing)) {
        return tl::unexpected(
            FileCopyError{sharing, make_error_code(std::errc::no_space_on_device)});
    }
    return kept;
}

std::vector<fs::path> SharedItems::earlier() const {
    std::vector<fs::path> sharings;
    for (const fs::path& run : childrenOf(folder_)) {
        if (run.filename() != run_) {
            const std::vector<fs::path> some = childrenOf(run);
            sharings.insert(sharings.end(), some.begin(), some.end());
        }
    }
    return sharings;
}

QList<QUrl> SharedItems::recoverChanged(const fs::path& into) const {
    const std::vector<fs::path> sharings = earlier();
    QList<QUrl> recovered;
    for (const fs::path& sharing : sharings) {
        const QList<QUrl> changed = changedIn(sharing);
        std::error_code ignored;
        if (!changed.isEmpty()) {
            fs::create_directories(into, ignored);
            const auto copies = ItemSaver([] { return true; }).save(changed, into);
            if (!copies) {
                continue;
            }
            recovered += *copies;
        }
        if (!mayBeOpen(sharing) || (!changed.isEmpty() && !writeNote(sharing))) {
            fs::remove_all(sharing, ignored);
        }
        // That of its run, if this was the last.
        fs::remove(sharing.parent_path(), ignored);
    }
    return recovered;
}

}  // namespace pellumar
