#include "platform/sharing/SharedItems.h"

#include <QUuid>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/UserFolders.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// A folder may be named with a slash at its end.
fs::path plainPath(const fs::path& path) {
    return path.has_filename() ? path : path.parent_path();
}

bool giveSecondName(const fs::path& item, const fs::path& to) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (error || fs::is_symlink(item, error)) {
        // Elsewhere a link could lead elsewhere.
        return false;
    }
    constexpr fs::copy_options kOptions = fs::copy_options::recursive |
                                          fs::copy_options::create_hard_links |
                                          fs::copy_options::copy_symlinks;
    fs::copy(item, to, kOptions, error);
    return !error;
}

std::string newName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

}  // namespace

SharedItems::SharedItems(fs::path folder) : folder_(std::move(folder)), run_(newName()) {}

fs::path SharedItems::standardFolder() {
    return UserFolders::data("Shared");
}

QList<QUrl> SharedItems::keep(const QList<QUrl>& items) const {
    const fs::path folder = folder_ / run_ / newName();
    QList<QUrl> kept;
    for (const QUrl& item : items) {
        const std::optional<fs::path> path = localPath(item);
        // Two may be called the same.
        const fs::path place = folder / std::to_string(kept.size());
        const bool isKept =
            path && giveSecondName(plainPath(*path), place / plainPath(*path).filename());
        kept.append(isKept ? fileUrl(place / plainPath(*path).filename()) : item);
    }
    return kept;
}

void SharedItems::forgetEarlier() const {
    std::error_code ignored;
    std::vector<fs::path> earlier;
    fs::directory_iterator each(folder_, ignored);
    for (; !ignored && each != fs::directory_iterator(); each.increment(ignored)) {
        if (each->path().filename() != run_) {
            earlier.push_back(each->path());
        }
    }
    for (const fs::path& path : earlier) {
        fs::remove_all(path, ignored);
    }
}

}  // namespace pellumar
