#include "platform/documents/PickerPlaces.h"

#include <mntent.h>

#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string_view>
#include <system_error>

namespace pellumar {
namespace {

namespace fs = std::filesystem;

using Place = PickerPlaces::Place;
using Paths = QStandardPaths;

// From the kernel's list, which does not hang, as a look at a file system may.
std::vector<Place> mountedDrives() {
    std::vector<Place> drives;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> table(
        ::setmntent("/proc/self/mounts", "r"), &::endmntent);
    if (!table) {
        return drives;
    }
    mntent entry{};
    std::array<char, 8192> text{};
    while (::getmntent_r(table.get(), &entry, text.data(), text.size()) != nullptr) {
        const std::string_view root(entry.mnt_dir);
        if (root.starts_with("/media/") || root.starts_with("/run/media/")) {
            const fs::path folder(root);
            // Which is the label, where it was mounted for the user.
            drives.push_back({QString::fromStdString(folder.filename().native()),
                              QStringLiteral("drive"),
                              folder});
        }
    }
    return drives;
}

bool isInside(const fs::path& path, const fs::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

}  // namespace

PickerPlaces::PickerPlaces(DispatchQueue& mainQueue, FolderQueue& folders) {
    const auto add = [this](const QString& name, const char* icon, Paths::StandardLocation where) {
        const fs::path folder(Paths::writableLocation(where).toStdString());
        const auto isSame = [&folder](const auto& one) { return one.place.folder == folder; };
        if (!folder.empty() && std::none_of(candidates_.begin(), candidates_.end(), isSame)) {
            candidates_.push_back({{name, QString::fromLatin1(icon), folder}});
        }
    };
    add(tr("Home"), "home", Paths::HomeLocation);
    add(tr("Downloads"), "download", Paths::DownloadLocation);
    add(tr("Documents"), "document", Paths::DocumentsLocation);
    add(tr("Pictures"), "image", Paths::PicturesLocation);
    add(tr("Videos"), "video", Paths::MoviesLocation);
    candidates_.front().isThere = true;
    for (std::size_t i = 1; i < candidates_.size(); ++i) {
        lookFor(i, mainQueue, folders);
    }
    for (Place& drive : mountedDrives()) {
        candidates_.push_back({std::move(drive), true});
    }
    refresh();
}

void PickerPlaces::lookFor(std::size_t candidate, DispatchQueue& mainQueue, FolderQueue& folders) {
    const std::weak_ptr<PickerPlaces*> asker = self_;
    const fs::path folder = candidates_[candidate].place.folder;
    folders.async(folder, [asker, candidate, folder, &mainQueue] {
        std::error_code unknown;
        if (asker.expired() || !fs::is_directory(folder, unknown)) {
            return;
        }
        mainQueue.async([asker, candidate] {
            if (const auto places = asker.lock()) {
                (*places)->candidates_[candidate].isThere = true;
                (*places)->refresh();
            }
        });
    });
}

void PickerPlaces::refresh() {
    places_.clear();
    for (const Candidate& candidate : candidates_) {
        if (candidate.isThere) {
            places_.push_back(candidate.place);
        }
    }
    emit changed();
}

int PickerPlaces::indexOf(const fs::path& folder) const {
    const auto place = std::find_if(places_.begin(), places_.end(), [&folder](const Place& each) {
        return each.folder == folder;
    });
    return place == places_.end() ? -1 : static_cast<int>(place - places_.begin());
}

std::vector<Place> PickerPlaces::wayTo(const fs::path& folder) const {
    Place start{QStringLiteral("/"), QStringLiteral("drive"), "/"};
    for (const Place& place : places_) {
        // The outermost: the home folder, of those in it.
        if (start.folder == "/" && isInside(folder, place.folder)) {
            start = place;
        }
    }
    std::vector<Place> way{start};
    for (const fs::path& name : folder.lexically_relative(start.folder)) {
        if (name != ".") {
            way.push_back({QString::fromStdString(name.native()),
                           QStringLiteral("folder"),
                           way.back().folder / name});
        }
    }
    return way;
}

}  // namespace pellumar
