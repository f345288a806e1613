#include "engine/ZipManager.h"

#include <QByteArray>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

#include "archive/Archive.h"
#include "engine/CompressionJob.h"
#include "events/EventNames.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using Environment = ZipManager::Environment;
using archive::Error;
using archive::ErrorCode;
using archive::Result;
using std::filesystem::path;

// Writes each picture into the folder under its position, and lists the folder. A picture that
// cannot be encoded or written leaves a gap.
std::optional<QList<QUrl>> stage(const std::vector<std::shared_ptr<const Image>>& images,
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

Result<QList<QUrl>> extract(const Environment& environment, const QUrl& archive, const QUrl& to) {
    const std::optional<path> source = localPath(archive);
    const std::optional<path> destination = localPath(to);
    if (!source || !destination) {
        return archive::failure(ErrorCode::kInvalidArgument);
    }
    if (environment.originals && !environment.originals->isUnchanged(*source)) {
        return archive::Failure(
            Error{.code = ErrorCode::kSourceChanged, .entry = source->filename().native()});
    }
    std::error_code error;
    std::filesystem::create_directories(*destination, error);
    if (error) {
        return archive::Failure(Error{.code = ErrorCode::kWriteFailed,
                                      .entry = destination->native(),
                                      .systemError = error.value()});
    }
    Result<archive::UnzipReport> report = archive::unzipItem(*source, *destination, false);
    if (!report) {
        return archive::passOn(report);
    }
    if (environment.diagnostics != nullptr && !report->warnings.empty()) {
        environment.diagnostics->jobWarned(archive, report->warnings);
    }
    std::optional<QList<QUrl>> files = FileSystem::contents(*destination);
    if (!files) {
        return archive::systemFailure(ErrorCode::kReadFailed);
    }
    return *std::move(files);
}

// One run of ZipManager::unzip, with what it passes from the background queue to the main one.
struct ExtractionJob {
    Environment environment;
    QUrl archive;
    QUrl destination;
    ZipManager::FilesCompletion completion;
    std::optional<QList<QUrl>> files;

    void run() {
        Result<QList<QUrl>> extracted = extract(environment, archive, destination);
        if (extracted) {
            files = *std::move(extracted);
            return;
        }
        environment.console.writeLine(QStringLiteral("FAILED!"));
        if (environment.diagnostics != nullptr) {
            environment.diagnostics->jobFailed(archive, extracted.error());
        }
    }

    void finish() {
        environment.analytics.logEvent(files ? event::kUnzippedSuccessfully
                                             : event::kFailedToUnzip);
        completion(std::move(files));
    }
};

// One run of ZipManager::zip with pictures, up to where it becomes one with files.
struct PhotoJob {
    Environment environment;
    std::vector<std::shared_ptr<const Image>> images;
    QString title;
    ZipManager::ArchiveCompletion completion;

    void run(const std::weak_ptr<ZipManager>& manager) {
        stageAndZip(manager);
        // What the completion holds belongs to the main queue, also if it is never called.
        environment.mainQueue.async([completion = std::move(completion)] {});
    }

  private:
    void stageAndZip(const std::weak_ptr<ZipManager>& manager) const {
        const QUrl folder = environment.fileSystem.tempImages();
        const std::optional<QList<QUrl>> staged = stage(images, folder);
        if (!staged) {
            if (environment.diagnostics != nullptr) {
                environment.diagnostics->jobFailed(
                    folder, archive::systemFailure(ErrorCode::kReadFailed).value());
            }
            return;
        }
        if (const std::shared_ptr<ZipManager> alive = manager.lock()) {
            alive->zip(*staged, title, cleaningUp());
        }
    }

    // The completion in two steps on the main queue: the folder is empty before the caller knows.
    [[nodiscard]] ZipManager::ArchiveCompletion cleaningUp() const {
        return [environment = environment,
                completion = completion](const std::optional<QUrl>& archive) {
            environment.fileSystem.clearTempImages();
            environment.mainQueue.async([completion, archive] { completion(archive); });
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

void ZipManager::zip(const QList<QUrl>& urls, const QString& title, ArchiveCompletion completion) {
    auto job = std::make_shared<CompressionJob>(environment_, urls, title, std::move(completion));
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
                     ArchiveCompletion completion) {
    environment_.backgroundQueue.async(
        [job = PhotoJob{environment_, std::move(images), title, std::move(completion)},
         manager = weak_from_this()]() mutable { job.run(manager); });
}

void ZipManager::unzip(const QUrl& url, FilesCompletion completion) const {
    auto job = std::make_shared<ExtractionJob>(ExtractionJob{
        .environment = environment_,
        .archive = url,
        .destination = environment_.fileSystem.newExtraction(),
        .completion = std::move(completion),
        .files = std::nullopt,
    });
    environment_.fileSystem.removeItem(job->destination);
    environment_.backgroundQueue.async(
        [job = std::move(job), &main = environment_.mainQueue]() mutable {
            job->run();
            main.async([job = std::move(job)] { job->finish(); });
        });
}

}  // namespace pellumar
