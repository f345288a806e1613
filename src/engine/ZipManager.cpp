#include "engine/ZipManager.h"

#include <QByteArray>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

#include "engine/CompressionJob.h"
#include "engine/ExtractionJob.h"
#include "engine/SalvageJob.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using Environment = ZipManager::Environment;
using std::filesystem::path;

// Writes each picture into the folder under its position, and lists the folder. A picture that
// cannot be encoded or written leaves a gap.
std::optional<FileSystem::Contents> stage(const std::vector<std::shared_ptr<const Image>>& images,
                                          const QUrl& folderUrl) {
    constexpr double kQuality = 0.5;
    const std::optional<path> folder = localPath(folderUrl);
    if (!folder) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < images.size(); ++i) {
        const QByteArray jpeg = images[i]->jpegData(kQuality);
        if (!jpeg.isEmpty()) {
            const path place = *folder / (std::to_string(i) + ".jpg");
            std::ofstream file(place, std::ios::binary);
            file.write(jpeg.constData(), jpeg.size());
            file.close();
            if (!file) {
                std::error_code ignored;
                std::filesystem::remove(place, ignored);
            }
        }
    }
    return FileSystem::contents(*folder);
}

// One run of ZipManager::zip with pictures, up to where it becomes one with files.
struct PhotoJob {
    Environment environment;
    std::vector<std::shared_ptr<const Image>> images;
    QString title;
    ZipManager::ArchiveCompletion completion;
    std::shared_ptr<const archive::Password> password;

    void run(const std::weak_ptr<ZipManager>& manager) {
        stageAndZip(manager);
        // What the completion holds belongs to the main queue, also if it is never called.
        environment.mainQueue.async([completion = std::move(completion)] {});
    }

  private:
    void stageAndZip(const std::weak_ptr<ZipManager>& manager) const {
        const QUrl folder = environment.fileSystem.tempImages();
        const std::optional<FileSystem::Contents> staged = stage(images, folder);
        const std::shared_ptr<ZipManager> alive = manager.lock();
        if (staged && alive) {
            alive->zip(staged->items, title, cleaningUp(), password);
        }
    }

    // The completion in two steps on the main queue: the folder is empty before the caller knows.
    [[nodiscard]] ZipManager::ArchiveCompletion cleaningUp() const {
        return [environment = environment, completion = completion](
                   const std::optional<QUrl>& archive, const JobReport& report) {
            environment.fileSystem.clearTempImages();
            environment.mainQueue.async(
                [completion, archive, report] { completion(archive, report); });
        };
    }
};

}  // namespace

std::shared_ptr<ZipManager> ZipManager::create(const Environment& environment) {
    return std::shared_ptr<ZipManager>(new ZipManager(environment));
}

void ZipManager::setDelegate(std::weak_ptr<ZipManagerDelegate> delegate) {
    const std::lock_guard lock(mutex_);
    delegate_ = std::move(delegate);
}

std::shared_ptr<ZipManagerDelegate> ZipManager::delegate() const {
    const std::lock_guard lock(mutex_);
    return delegate_.lock();
}

// The jobs below are handed from queue to queue, so that whatever a completion holds is released
// on the main queue.

void ZipManager::zip(const QList<QUrl>& urls,
                     const QString& title,
                     ArchiveCompletion completion,
                     std::shared_ptr<const archive::Password> password) {
    auto job = std::make_shared<CompressionJob>(
        environment_, urls, title, std::move(completion), std::move(password));
    environment_.console.writeLine(QStringLiteral("Compressing %1 items").arg(urls.size()));
    environment_.backgroundQueue.async([job = std::move(job),
                                        manager = weak_from_this(),
                                        &main = environment_.mainQueue]() mutable {
        job->run(manager);
        main.async([job = std::move(job)] { job->finish(); });
    });
}

void ZipManager::zip(std::vector<std::shared_ptr<const Image>> images,
                     const QString& title,
                     ArchiveCompletion completion,
                     std::shared_ptr<const archive::Password> password) {
    environment_.backgroundQueue.async(
        [job = PhotoJob{environment_,
                        std::move(images),
                        title,
                        std::move(completion),
                        std::move(password)},
         manager = weak_from_this()]() mutable { job.run(manager); });
}

void ZipManager::unzip(const QUrl& url,
                       FilesCompletion completion,
                       PasswordQuestion question) const {
    std::make_shared<ExtractionJob>(environment_, url, std::move(completion), std::move(question))
        ->start();
}

void ZipManager::salvage(const QUrl& url,
                         FilesCompletion completion,
                         std::shared_ptr<const archive::Password> password,
                         PasswordQuestion question) const {
    std::make_shared<SalvageJob>(
        environment_, url, std::move(completion), std::move(password), std::move(question))
        ->start();
}

}  // namespace pellumar
