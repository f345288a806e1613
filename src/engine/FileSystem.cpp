#include "engine/FileSystem.h"

#include <dirent.h>

#include <QUuid>
#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

#include "engine/TreeRemoval.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

constexpr const char* kOutputs = "outputs";
constexpr const char* kZipOutputs = "outputs/zipOutputs";
constexpr const char* kDownloads = "downloads";
constexpr const char* kTempImages = "outputs/tempImages";

void empty(const std::filesystem::path& folder, Console* console) {
    const std::optional<QList<QUrl>> children = FileSystem::contents(folder);
    if (!children) {
        return;
    }
    for (const QUrl& child : *children) {
        if (console != nullptr) {
            console->writeLine(QStringLiteral("Deleting: ") + child.toString(QUrl::FullyEncoded));
        }
        if (const std::optional<std::filesystem::path> path = localPath(child)) {
            static_cast<void>(removeTree(*path));
        }
    }
}

}  // namespace

FileSystem::FileSystem(DocumentDirectory documents, Console& console)
    : documents_(std::move(documents)), console_(console) {}

void FileSystem::createFolders() const {
    for (const char* folder : {kOutputs, kZipOutputs, kDownloads, kTempImages}) {
        std::error_code ignored;
        std::filesystem::create_directories(documents_.path() / folder, ignored);
    }
}

void FileSystem::clearWorkspace() const {
    for (const char* folder : {kOutputs, kDownloads, kZipOutputs, kTempImages}) {
        empty(documents_.path() / folder, &console_);
    }
}

void FileSystem::clearZipOutputs() const {
    empty(documents_.path() / kZipOutputs, nullptr);
}

void FileSystem::clearTempImages() const {
    empty(documents_.path() / kTempImages, nullptr);
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
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    return fileUrl(documents_.path() / kZipOutputs / name.toStdString());
}

QUrl FileSystem::tempImages() const {
    return fileUrl(documents_.path() / kTempImages);
}

std::optional<QList<QUrl>> FileSystem::contents(const std::filesystem::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), &::closedir);
    if (!stream) {
        return std::nullopt;
    }
    QList<QUrl> found;
    errno = 0;
    while (const dirent* entry = ::readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with('.')) {
            found.append(fileUrl(folder / name));
        }
        errno = 0;
    }
    return errno == 0 ? std::optional(std::move(found)) : std::nullopt;
}

}  // namespace pellumar
