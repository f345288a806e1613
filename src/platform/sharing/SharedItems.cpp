#include "platform/sharing/SharedItems.h"

#include <sys/stat.h>

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QMap>
#include <QSaveFile>
#include <QSet>
#include <QUuid>
#include <cerrno>
#include <chrono>
#include <optional>
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

tl::expected<void, FileCopyError> giveSecondName(const fs::path& item, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    constexpr fs::copy_options kOptions = fs::copy_options::recursive |
                                          fs::copy_options::create_hard_links |
                                          fs::copy_options::copy_symlinks;
    // Elsewhere a link could lead elsewhere.
    if (!error && !fs::is_symlink(item, error)) {
        // It throws all the same when a folder cannot be read to its end.
        try {
            fs::copy(item, to, kOptions, error);
        } catch (const fs::filesystem_error& failure) {
            error = failure.code();
        }
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

using Paths = std::vector<fs::path>;

Paths childrenOf(const fs::path& folder) {
    Paths children;
    std::error_code ignored;
    fs::directory_iterator each(folder, ignored);
    for (; !ignored && each != fs::directory_iterator(); each.increment(ignored)) {
        children.push_back(each->path());
    }
    return children;
}

// Size, time of change and number: who writes a new file and renames it changes the last at least.
// Nothing if that cannot be told of all; of folders that others have closed to us nothing is.
std::optional<Note> stateOf(const fs::path& sharing) {
    Note note;
    std::error_code failure;
    fs::recursive_directory_iterator each(
        sharing, fs::directory_options::skip_permission_denied, failure);
    for (; !failure && each != fs::recursive_directory_iterator(); each.increment(failure)) {
        const std::string name = each->path().lexically_relative(sharing);
        struct stat status {};
        // Editors remove files of their own meanwhile.
        if (::lstat(each->path().c_str(), &status) != 0 && errno != ENOENT) {
            return std::nullopt;
        }
        if (name != kNote && S_ISREG(status.st_mode)) {
            note[QByteArray::fromStdString(name)] =
                QByteArray::number(qint64{status.st_size}) + ' ' +
                QByteArray::number(qint64{status.st_mtim.tv_sec}) + ' ' +
                QByteArray::number(qint64{status.st_mtim.tv_nsec}) + ' ' +
                QByteArray::number(quint64{status.st_ino});
        }
    }
    return failure ? std::nullopt : std::optional(note);
}

bool writeNote(const fs::path& sharing, const Note& note) {
    QSaveFile file(QString::fromStdString(sharing / kNote));
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&file);
    stream << note;
    return file.commit();
}

// None if it was not written to its end: then nothing was handed out.
std::optional<Note> readNote(const fs::path& sharing) {
    QFile file(QString::fromStdString(sharing / kNote));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QDataStream stream(&file);
    Note note;
    stream >> note;
    return stream.status() == QDataStream::Ok ? std::optional(note) : std::nullopt;
}

// What editors leave beside their files.
bool isByTheWay(const QByteArray& path) {
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return name.startsWith('.') || name.endsWith('~');
}

// What has become different, by its path as in a note.
Note changesOf(const Note& before, const Note& now) {
    Note changes;
    for (auto each = now.begin(); each != now.end(); ++each) {
        const bool isNew = !before.contains(each.key());
        if (isNew ? !isByTheWay(each.key()) : before[each.key()] != each.value()) {
            changes[each.key()] = each.value();
        }
    }
    return changes;
}

// A single file, not too large to be left lying about.
bool mayBeOpen(const fs::path& sharing) {
    constexpr qint64 kLargest = 64 << 20;
    std::error_code unknown;
    const fs::file_time_type noted = fs::last_write_time(sharing / kNote, unknown);
    const std::optional<Note> note = readNote(sharing);
    return !unknown && note && note->size() == 1 &&
           note->first().left(note->first().indexOf(' ')).toLongLong() <= kLargest &&
           fs::file_time_type::clock::now() - noted < kMayBeOpen;
}

// Copies what has changed in a sharing, and forgets the sharing unless it may be open. What is in
// `kept`, by its state, is another name of a file that has been copied, and is not copied again.
QList<QUrl> recoverFrom(const fs::path& sharing, const fs::path& into, QSet<QByteArray>& kept) {
    // Taken before anything is copied: what is saved from now on differs from it.
    const std::optional<Note> now = stateOf(sharing);
    if (!now) {
        return {};
    }
    const std::optional<Note> before = readNote(sharing);
    const Note changes = before ? changesOf(*before, *now) : Note();
    QSet<QByteArray> states;
    QList<QUrl> files;
    for (auto each = changes.begin(); each != changes.end(); ++each) {
        if (!kept.contains(each.value()) && !states.contains(each.value())) {
            states.insert(each.value());
            files.append(fileUrl(sharing / each.key().toStdString()));
        }
    }
    QList<QUrl> recovered;
    std::error_code ignored;
    if (!files.isEmpty()) {
        fs::create_directories(into, ignored);
        const auto copies = ItemSaver([] { return true; }).save(files, into);
        if (!copies) {
            return {};
        }
        recovered = *copies;
        kept.unite(states);
    }
    const bool stays = mayBeOpen(sharing);
    const bool isNoted = changes.isEmpty() || writeNote(sharing, *now);
    if ((!stays || !isNoted) && stateOf(sharing) == now) {
        fs::remove_all(sharing, ignored);
    }
    // That of its run, if this was the last.
    fs::remove(sharing.parent_path(), ignored);
    return recovered;
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
        const fs::path plain = withoutTrailingSlash(*path);
        const fs::path name = plain.filename();
        const int number = namesakes[QByteArray::fromStdString(name)]++;
        const fs::path place = sharing / std::to_string(number) / name;
        if (const auto given = giveSecondName(plain, place); !given) {
            return tl::unexpected(given.error());
        }
        kept.append(fileUrl(place));
    }
    if (!namesakes.isEmpty()) {
        const std::optional<Note> state = stateOf(sharing);
        if (!state || !writeNote(sharing, *state)) {
            const auto reason = state ? std::errc::no_space_on_device : std::errc::io_error;
            return tl::unexpected(FileCopyError{sharing, make_error_code(reason)});
        }
    }
    return kept;
}

QList<QUrl> SharedItems::recoverChanged(const fs::path& into) const {
    QList<QUrl> recovered;
    QSet<QByteArray> kept;
    for (const fs::path& run : childrenOf(folder_)) {
        for (const fs::path& sharing : run.filename() == run_ ? Paths() : childrenOf(run)) {
            recovered += recoverFrom(sharing, into, kept);
        }
    }
    return recovered;
}

}  // namespace pellumar
