#include "engine/CompressionJob.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "events/EventNames.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using archive::Archive;
using archive::EntrySource;
using archive::Error;
using archive::ErrorCode;

// The last component of a URL's path and the folder it stands in; nothing, which cannot be added,
// for a URL without one.
EntrySource sourceOf(const QUrl& url) {
    const std::optional<std::filesystem::path> path = localPath(url);
    if (!path) {
        return {};
    }
    const std::filesystem::path plain = withoutTrailingSlash(*path);
    return {.path = plain.filename(), .base = plain.parent_path()};
}

Error notAPath(const QUrl& url) {
    return {.code = ErrorCode::kInvalidArgument,
            .entry = url.toString(QUrl::FullyEncoded).toStdString()};
}

}  // namespace

CompressionJob::CompressionJob(const ZipManager::Environment& environment,
                               const QList<QUrl>& urls,
                               const QString& title,
                               ZipManager::ArchiveCompletion completion,
                               std::shared_ptr<const archive::Password> password)
    : environment_(environment),
      urls_(urls),
      archiveUrl_(environment.fileSystem.archive(title)),
      completion_(std::move(completion)),
      report_(OperationType::kZip, archiveUrl_) {
    const std::optional<std::filesystem::path> path = localPath(archiveUrl_);
    if (!path) {
        report_.addFailure(notAPath(archiveUrl_));
        return;
    }
    const std::error_code noFolder = environment_.fileSystem.createOutputs();
    // An earlier archive of this title stays until the new one is whole. A folder in its place
    // cannot be replaced.
    std::error_code unknown;
    if (std::filesystem::is_directory(std::filesystem::symlink_status(*path, unknown))) {
        environment_.fileSystem.removeItem(archiveUrl_);
    }
    archive::Result<Archive> created =
        Archive::open(*path,
                      archive::AccessMode::kReplace,
                      std::move(password),
                      {.stop = environment_.stop, .progress = environment_.progress});
    if (!created) {
        // The earlier one must not pass for the new one.
        environment_.fileSystem.removeItem(archiveUrl_);
        Error error = created.error();
        error.systemError = noFolder ? noFolder.value() : error.systemError;
        report_.addFailure(std::move(error));
        return;
    }
    archive_ = std::move(*created);
}

void CompressionJob::run(const std::weak_ptr<ZipManager>& manager) {
    std::vector<EntrySource> sources;
    for (const QUrl& url : std::as_const(urls_)) {
        sources.push_back(sourceOf(url));
    }
    const auto begin = [this, &sources](std::size_t index) {
        if (index < sources.size()) {
            environment_.console.writeLine(QStringLiteral("Adding url to file"));
        }
    };
    begin(0);
    if (!archive_) {
        // Without an archive every file counts as added.
        for (std::size_t i = 0; i < sources.size(); ++i) {
            end(true, manager);
            begin(i + 1);
        }
        return;
    }
    std::optional<std::size_t> triedAgain;
    const auto afterEach = [&](std::size_t index, const archive::Result<>& added) {
        if (environment_.stop.stop_requested()) {
            return archive::Writer::Next::kStop;
        }
        if (!added && added.error().isShortOfRoom() && triedAgain != index &&
            environment_.fileSystem.finishDeletions()) {
            triedAgain = index;
            return archive::Writer::Next::kAgain;
        }
        end(isIn(sources[index], urls_[static_cast<qsizetype>(index)], added), manager);
        begin(index + 1);
        return archive::Writer::Next::kGoOn;
    };
    const archive::Result<> added = archive_->addAll(
        sources, archive::CompressionMethod::kDeflate, archive::kDefaultWriteChunkSize, afterEach);
    // Memory is all that ends it else.
    if (!added && !environment_.stop.stop_requested()) {
        report_.addFailure(added.error());
        success_ = false;
    }
    closeArchive();
}

bool CompressionJob::isIn(const EntrySource& source,
                          const QUrl& url,
                          const archive::Result<>& added) {
    if (!added) {
        report_.addFailure(source.path.empty() ? notAPath(url) : added.error());
        return false;
    }
    if (environment_.originals && !environment_.originals->isUnchanged(source.base / source.path)) {
        report_.addFailure({.code = ErrorCode::kSourceChanged, .entry = source.path});
        return false;
    }
    return true;
}

void CompressionJob::end(bool isIn, const std::weak_ptr<ZipManager>& manager) {
    if (!isIn) {
        environment_.console.writeLine(QStringLiteral("Failed"));
        success_ = false;
        return;
    }
    environment_.console.writeLine(QStringLiteral("Finished: %1").arg(finished_ + 1));
    ++finished_;
    tellDelegate(manager);
}

void CompressionJob::closeArchive() {
    if (environment_.stop.stop_requested()) {
        report_.addFailure({.code = ErrorCode::kCancelled, .entry = {}});
        success_ = false;
        archive_.reset();
        return;
    }
    const archive::Result<> closed = archive_->close();
    if (!closed) {
        report_.addFailure(closed.error());
        success_ = false;
    } else {
        environment_.fileSystem.flushFolders();
    }
    report_.addWarnings(archive_->warnings());
    archive_.reset();
}

void CompressionJob::tellDelegate(const std::weak_ptr<ZipManager>& manager) const {
    const std::shared_ptr<ZipManager> alive = manager.lock();
    std::shared_ptr<ZipManagerDelegate> delegate = alive ? alive->delegate() : nullptr;
    if (delegate) {
        delegate->zipManagerDidAddFile(finished_, urls_.size());
        // Ours may have become the last reference meanwhile.
        environment_.mainQueue.async([delegate = std::move(delegate)] {});
    }
}

void CompressionJob::finish() {
    environment_.console.writeLine(QStringLiteral("FINISHED"));
    environment_.analytics.logEvent(success_ ? event::kZippedSuccessfully : event::kFailedToZip);
    completion_(success_ ? std::optional(archiveUrl_) : std::nullopt, report_);
}

}  // namespace pellumar
