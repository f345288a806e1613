#include "engine/ExtractionJob.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "engine/TreeRemoval.h"
#include "events/EventNames.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using archive::Error;
using archive::ErrorCode;
using archive::Result;
using std::filesystem::path;

// Into a folder that is made for it. Until all files in it are whole it has another name, which is
// what a killed process leaves.
Result<archive::UnzipReport> extract(const path& source,
                                     const path& destination,
                                     const archive::Password* password) {
    path unfinished = destination;
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
    auto extracted = archive::unzipItem(source, unfinished, false, password);
    // After a failure as well: what was finished before it stays.
    std::filesystem::rename(unfinished, destination, error);
    if (error) {
        static_cast<void>(removeTree(unfinished));
        return extracted ? failed(error) : std::move(extracted);
    }
    return extracted;
}

}  // namespace

// Holds the job while it waits.
class ExtractionJob::Request : public PasswordRequest,
                               public std::enable_shared_from_this<Request> {
  public:
    Request(std::shared_ptr<ExtractionJob> job, Error missing)
        : job_(std::move(job)), missing_(std::move(missing)) {}
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request() override { giveUp(); }

    [[nodiscard]] bool wasWrong() const override {
        return missing_.code == ErrorCode::kWrongPassword;
    }

    void tryPassword(Password password, std::function<void(bool fits)> reply) override {
        if (!job_) {
            return;
        }
        job_->environment_.backgroundQueue.async([job = job_,
                                                  self = weak_from_this(),
                                                  password = std::move(password),
                                                  reply = std::move(reply)]() mutable {
            const bool fits = job->fits(*password);
            DispatchQueue& main = job->environment_.mainQueue;
            main.async([job = std::move(job),
                        self = std::move(self),
                        password = std::move(password),
                        reply = std::move(reply),
                        fits] {
                const std::shared_ptr<Request> request = self.lock();
                if (!request || !request->job_) {
                    return;
                }
                if (fits) {
                    request->job_.reset();
                    job->password_ = password;
                    job->start();
                } else {
                    request->missing_.code = ErrorCode::kWrongPassword;
                }
                reply(fits);
            });
        });
    }

    void giveUp() override {
        if (const std::shared_ptr<ExtractionJob> job = std::exchange(job_, nullptr)) {
            // A caller may be in the midst of leaving the screen.
            job->environment_.mainQueue.async(
                [job, missing = missing_] { job->finish(archive::Failure(missing)); });
        }
    }

  private:
    std::shared_ptr<ExtractionJob> job_;
    Error missing_;
};

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
        const bool locked = !extracted && job->isLocked(extracted.error().code);
        DispatchQueue& main = job->environment_.mainQueue;
        main.async([job = std::move(job), extracted = std::move(extracted), locked] {
            if (locked && job->question_) {
                job->askForPassword(extracted.error());
            } else {
                job->finish(extracted);
            }
        });
    });
}

void ExtractionJob::askForPassword(Error missing) {
    question_(std::make_shared<Request>(shared_from_this(), std::move(missing)));
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
    const std::optional<path> from = localPath(archive_);
    if (!from || failure != (password_ ? ErrorCode::kWrongPassword : ErrorCode::kEncrypted)) {
        return false;
    }
    environment_.fileSystem.removeItem(destination_);
    const auto opened = archive::Reader::open(*from);
    return opened && !opened->firstFault();
}

bool ExtractionJob::fits(const archive::Password& password) const {
    const std::optional<path> from = localPath(archive_);
    if (!from) {
        return true;
    }
    const auto opened = archive::Reader::open(*from);
    if (!opened) {
        return true;
    }
    // Whatever else is wrong by now, the extraction will say.
    const Result<> checked = opened->checkPassword(password);
    return checked || checked.error().code != ErrorCode::kWrongPassword;
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
    Result<archive::UnzipReport> extracted = extract(*from, *to, password_.get());
    if (!extracted && extracted.error().isShortOfRoom() &&
        environment_.fileSystem.finishDeletions()) {
        environment_.fileSystem.removeItem(destination_);
        extracted = extract(*from, *to, password_.get());
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
