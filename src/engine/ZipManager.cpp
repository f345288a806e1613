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

// Into a folder that is made for it.
Result<archive::UnzipReport> extract(const path& source,
                                     const path& destination,
                                     const archive::Password* password) {
    std::error_code error;
    std::filesystem::create_directories(destination, error);
    if (error) {
        return archive::Failure(
            Error{.code = ErrorCode::kWriteFailed, .entry = {}, .systemError = error.value()});
    }
    return archive::unzipItem(source, destination, false, password);
}

// One run of ZipManager::unzip, with what it passes from the background queue to the main one.
struct ExtractionJob {
    Environment environment;
    QUrl archive;
    QUrl destination;
    ZipManager::FilesCompletion completion;
    std::shared_ptr<const archive::Password> password;
    JobReport report{OperationType::kUnzip, archive};
    std::optional<QList<QUrl>> files = std::nullopt;

    void run() {
        Result<FileSystem::Contents> extracted = contents();
        if (extracted) {
            files = std::move(extracted->items);
            report.setHiddenItems(std::move(extracted->hidden));
            return;
        }
        environment.console.writeLine(QStringLiteral("FAILED!"));
        report.addFailure(std::move(extracted.error()));
    }

    void finish() {
        environment.analytics.logEvent(files ? event::kUnzippedSuccessfully
                                             : event::kFailedToUnzip);
        completion(std::move(files), report);
    }

  private:
    // What has been extracted.
    Result<FileSystem::Contents> contents() {
        const std::optional<path> from = localPath(archive);
        const std::optional<path> to = localPath(destination);
        if (!from || !to) {
            return archive::failure(ErrorCode::kInvalidArgument);
        }
        const auto changed = [&] {
            return environment.originals && !environment.originals->isUnchanged(*from);
        };
        const Error changedSincePicked{.code = ErrorCode::kSourceChanged,
                                       .entry = from->filename().native()};
        if (changed()) {
            return archive::Failure(changedSincePicked);
        }
        Result<archive::UnzipReport> extracted = extract(*from, *to, password.get());
        if (!extracted && extracted.error().isShortOfRoom() &&
            environment.fileSystem.finishDeletions()) {
            environment.fileSystem.removeItem(destination);
            extracted = extract(*from, *to, password.get());
        }
        // Written over meanwhile, it may have passed every check with some of both in it.
        if (changed()) {
            return archive::Failure(changedSincePicked);
        }
        if (!extracted) {
            return archive::passOn(extracted);
        }
        report.addWarnings(extracted->warnings);
        std::optional<FileSystem::Contents> found = FileSystem::contents(*to);
        if (!found) {
            return archive::systemFailure(ErrorCode::kReadFailed);
        }
        return *std::move(found);
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
        const std::optional<FileSystem::Contents> staged = stage(images, folder);
        const std::shared_ptr<ZipManager> alive = manager.lock();
        if (staged && alive) {
            alive->zip(staged->items, title, cleaningUp());
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

void ZipManager::unzip(const QUrl& url,
                       FilesCompletion completion,
                       std::shared_ptr<const archive::Password> password) const {
    auto job = std::make_shared<ExtractionJob>(ExtractionJob{
        .environment = environment_,
        .archive = url,
        .destination = environment_.fileSystem.newExtraction(),
        .completion = std::move(completion),
        .password = std::move(password),
    });
    environment_.fileSystem.removeItem(job->destination);
    environment_.backgroundQueue.async(
        [job = std::move(job), &main = environment_.mainQueue]() mutable {
            job->run();
            main.async([job = std::move(job)] { job->finish(); });
        });
}

}  // namespace pellumar
