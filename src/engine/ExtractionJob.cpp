#include "engine/ExtractionJob.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "engine/TreeRemoval.h"
#include "events/EventNames.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using archive::Error;
using archive::ErrorCode;
using archive::Result;
using std::filesystem::path;

}  // namespace

ExtractionJob::ExtractionJob(const ZipManager::Environment& environment,
                             QUrl archive,
                             ZipManager::FilesCompletion completion,
                             PasswordQuestion question)
    : environment_(environment),
      archive_(std::move(archive)),
      destination_(environment.fileSystem.newExtraction()),
      completion_(std::move(completion)),
      question_(std::move(question)),
      report_(OperationType::kUnzip, archive_) {
    environment_.fileSystem.removeItem(destination_);
}

void ExtractionJob::start() {
    environment_.backgroundQueue.async([job = shared_from_this()]() mutable {
        Result<FileSystem::Contents> extracted = job->run();
        const bool locked = job->question_ && !extracted && job->isLocked(extracted.error().code);
        if (!locked) {
            job->reader_.reset();
        }
        DispatchQueue& main = job->environment_.mainQueue;
        main.async([job = std::move(job), extracted = std::move(extracted), locked] {
            if (locked) {
                job->missing_ = extracted.error();
                job->question_(requestFor(job,
                                          job->missing_.code == ErrorCode::kWrongPassword,
                                          job->environment_.mainQueue,
                                          job->environment_.backgroundQueue));
            } else {
                job->finish(extracted);
            }
        });
    });
}

void ExtractionJob::goOn(PasswordRequest::Password password) {
    password_ = std::move(password);
    start();
}

void ExtractionJob::endWithout(bool wasWrong) {
    environment_.backgroundQueue.async([reader = std::move(reader_)] {});
    missing_.code = wasWrong ? ErrorCode::kWrongPassword : ErrorCode::kEncrypted;
    finish(archive::Failure(missing_));
}

void ExtractionJob::finish(Result<FileSystem::Contents> extracted) {
    std::optional<QList<QUrl>> files;
    if (extracted) {
        files = std::move(extracted->items);
        report_.setHiddenItems(std::move(extracted->hidden));
    } else {
        environment_.console.writeLine(QStringLiteral("FAILED!"));
        report_.addFailure(std::move(extracted.error()));
    }
    report_.setPassword(password_);
    environment_.analytics.logEvent(files ? event::kUnzippedSuccessfully : event::kFailedToUnzip);
    completion_(std::move(files), report_);
}

bool ExtractionJob::isLocked(ErrorCode failure) const {
    if (failure != (password_ ? ErrorCode::kWrongPassword : ErrorCode::kEncrypted)) {
        return false;
    }
    environment_.fileSystem.removeItem(destination_);
    return !reader_->firstFault();
}

bool ExtractionJob::fits(const archive::Password& password) {
    // Whatever else is wrong by now, the extraction will say.
    const Result<> checked = reader_->checkPassword(password);
    return checked || checked.error().code != ErrorCode::kWrongPassword;
}

// Into a folder that is made for it. Until all files in it are whole it has another name, which is
// what a killed process leaves; one that is only asked to end leaves nothing.
Result<archive::UnzipReport> ExtractionJob::extract(const path& from, const path& to) {
    path unfinished = to;
    unfinished += ".part";
    const auto failed = [](const std::error_code& error) {
        return archive::Failure(
            Error{.code = ErrorCode::kWriteFailed, .entry = {}, .systemError = error.value()});
    };
    std::error_code error;
    std::filesystem::create_directories(unfinished, error);
    if (error) {
        return failed(error);
    }
    Result<archive::UnzipReport> extracted = unzip(from, unfinished);
    if (!extracted && extracted.error().code == ErrorCode::kCancelled) {
        static_cast<void>(removeTree(unfinished));
        return extracted;
    }
    // After a failure as well: what was finished before it stays.
    std::filesystem::rename(unfinished, to, error);
    if (error) {
        static_cast<void>(removeTree(unfinished));
        return extracted ? failed(error) : std::move(extracted);
    }
    return extracted;
}

Result<archive::UnzipReport> ExtractionJob::unzip(const path& from, const path& to) {
    if (!reader_) {
        auto opened = archive::Reader::open(from);
        if (!opened) {
            return archive::passOn(opened);
        }
        reader_ = std::make_shared<const archive::Reader>(*std::move(opened));
    }
    return archive::unzipItem(*reader_,
                              to,
                              {.password = password_.get(),
                               .stop = environment_.stop,
                               .progress = environment_.progress});
}

Result<FileSystem::Contents> ExtractionJob::run() {
    const std::optional<path> from = localPath(archive_);
    const std::optional<path> to = localPath(destination_);
    if (!from || !to) {
        return archive::failure(ErrorCode::kInvalidArgument);
    }
    const auto changed = [&] {
        return environment_.originals && !environment_.originals->isUnchanged(*from);
    };
    const Error changedSincePicked{.code = ErrorCode::kSourceChanged,
                                   .entry = from->filename().native()};
    if (changed()) {
        return archive::Failure(changedSincePicked);
    }
    Result<archive::UnzipReport> extracted = extract(*from, *to);
    if (!extracted && extracted.error().isShortOfRoom() &&
        environment_.fileSystem.finishDeletions()) {
        environment_.fileSystem.removeItem(destination_);
        extracted = extract(*from, *to);
    }
    // Written over meanwhile, it may have passed every check with some of both in it.
    if (changed()) {
        return archive::Failure(changedSincePicked);
    }
    if (!extracted) {
        return archive::passOn(extracted);
    }
    report_.addWarnings(extracted->warnings);
    std::optional<FileSystem::Contents> found = FileSystem::contents(*to);
    if (!found) {
        return archive::systemFailure(ErrorCode::kReadFailed);
    }
    return *std::move(found);
}

}  // namespace pellumar
