#include "engine/FileSystem.h"

#include <dirent.h>

#include <QUuid>
#include <cerrno>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "archive/base/File.h"
#include "engine/TreeRemoval.h"
#include "platform/FileUrl.h"
#include "platform/NaturalOrder.h"

namespace pellumar {
namespace {

constexpr const char* kOutputs = "outputs";
constexpr const char* kZipOutputs = "outputs/zipOutputs";
constexpr const char* kDownloads = "downloads";
constexpr const char* kTempImages = "outputs/tempImages";
constexpr const char* kDiscarded = ".discarded";

// One that is never given again.
std::string newName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString();
}

// Moves things into a folder of their own, which is made for the first.
class Discard {
  public:
    explicit Discard(std::filesystem::path folder) : folder_(std::move(folder)) {}

    [[nodiscard]] bool take(const std::filesystem::path& item) {
        std::error_code error;
        if (taken_ == 0) {
            std::filesystem::create_directories(folder_, error);
        }
        // Their names could be equal, as they come from several folders.
        std::filesystem::rename(item, folder_ / std::to_string(taken_), error);
        taken_ += error ? 0 : 1;
        return !error;
    }

    [[nodiscard]] bool isEmpty() const { return taken_ == 0; }
    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

  private:
    const std::filesystem::path folder_;
    int taken_ = 0;
};

}  // namespace

FileSystem::FileSystem(DocumentDirectory documents, Console& console, DispatchQueue* background)
    : documents_(std::move(documents)),
      console_(console),
      discarded_(PendingDeletions::on(background)),
      deletesLater_(background != nullptr) {}

void FileSystem::createFolders() const {
    for (const char* folder : {kOutputs, kZipOutputs, kDownloads, kTempImages}) {
        std::error_code ignored;
        std::filesystem::create_directories(documents_.path() / folder, ignored);
    }
}

std::error_code FileSystem::createOutputs() const {
    std::error_code failure;
    std::filesystem::create_directories(documents_.path() / kOutputs, failure);
    return failure;
}

void FileSystem::flushFolders() const {
    for (std::filesystem::path folder = documents_.path(); folder.has_relative_path();
         folder = folder.parent_path()) {
        auto opened = archive::File::openForReading(folder);
        if (!opened || !opened->flush()) {
            return;  // not the user's own from here on
        }
    }
}

void FileSystem::clearWorkspace() const {
    const std::filesystem::path root = documents_.path();
    if (const std::optional<Contents> left = contents(root / kDiscarded)) {
        for (const QUrl& folder : left->items) {
            discarded_->add(*localPath(folder));
        }
    }
    for (const char* folder : {kOutputs, kDownloads, kZipOutputs, kTempImages}) {
        empty(root / folder, Telling::kEachItem);
    }
}

void FileSystem::clearZipOutputs() const {
    empty(documents_.path() / kZipOutputs, Telling::kSilent);
}

void FileSystem::clearTempImages() const {
    empty(documents_.path() / kTempImages, Telling::kSilent);
}

void FileSystem::empty(const std::filesystem::path& folder, Telling telling) const {
    const std::optional<Contents> children = contents(folder);
    if (!children) {
        return;
    }
    Discard discard(documents_.path() / kDiscarded / newName());
    for (const QUrl& child : children->items) {
        if (telling == Telling::kEachItem) {
            console_.writeLine(QStringLiteral("Deleting: ") + child.toString(QUrl::FullyEncoded));
        }
        const std::optional<std::filesystem::path> path = localPath(child);
        // What cannot be moved, into another file system or for want of permission, goes at once.
        if (path && (!deletesLater_ || !discard.take(*path))) {
            static_cast<void>(removeTree(*path));
        }
    }
    if (!discard.isEmpty()) {
        discarded_->add(discard.folder());
    }
}

void FileSystem::removeItem(const QUrl& at) const {
    if (const std::optional<std::filesystem::path> path = localPath(at)) {
        static_cast<void>(removeTree(*path));
    }
}

QUrl FileSystem::archive(const QString& title) const {
    std::filesystem::path path = documents_.path() / kOutputs / "";
    path += title.toStdString() + ".zip";
    return fileUrl(path);
}

QUrl FileSystem::newExtraction() const {
    return fileUrl(documents_.path() / kZipOutputs / newName());
}

QUrl FileSystem::tempImages() const {
    return fileUrl(documents_.path() / kTempImages);
}

std::optional<FileSystem::Contents> FileSystem::contents(const std::filesystem::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), &::closedir);
    if (!stream) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    Contents found;
    errno = 0;
    while (const dirent* entry = ::readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with('.')) {
            names.emplace_back(name);
        } else if (name != "." && name != "..") {
            found.hidden.append(fileUrl(folder / name));
        }
        errno = 0;
    }
    if (errno != 0) {
        return std::nullopt;
    }
    for (const std::size_t position : naturalOrder(names)) {
        found.items.append(fileUrl(folder / names[position]));
    }
    return found;
}

}  // namespace pellumar
