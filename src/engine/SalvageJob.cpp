#include "engine/SalvageJob.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "archive/Salvage.h"
#include "platform/FileUrl.h"

namespace pellumar {

using archive::Error;
using archive::ErrorCode;
using archive::Result;
using std::filesystem::path;

SalvageJob::SalvageJob(const ZipManager::Environment& environment,
                       QUrl archive,
                       ZipManager::FilesCompletion completion,
                       PasswordRequest::Password password,
                       PasswordQuestion question)
    : environment_(environment),
      archive_(std::move(archive)),
      destination_(environment.fileSystem.newExtraction()),
      completion_(std::move(completion)),
      question_(std::move(question)),
      password_(std::move(password)),
      salvaged_(archive::failure(ErrorCode::kInvalidArgument)) {}

void SalvageJob::start() {
    environment_.backgroundQueue.async([job = shared_from_this()]() mutable {
        job->salvaged_ = job->run(job->password_.get());
        DispatchQueue& main = job->environment_.mainQueue;
        main.async([job = std::move(job)] {
            const bool wasWrong = job->hasLost(ErrorCode::kWrongPassword);
            if (job->question_ && (wasWrong || job->hasLost(ErrorCode::kEncrypted))) {
                job->question_(requestFor(
                    job, wasWrong, job->environment_.mainQueue, job->environment_.backgroundQueue));
            } else {
                job->finish();
            }
        });
    });
}

SalvageJob::Salvaged SalvageJob::run(const archive::Password* password) {
    const std::optional<path> from = localPath(archive_);
    const std::optional<path> to = localPath(destination_);
    if (!from || !to) {
        return archive::failure(ErrorCode::kInvalidArgument);
    }
    const auto salvage = [&]() -> Salvaged {
        environment_.fileSystem.removeItem(destination_);
        std::error_code error;
        std::filesystem::create_directories(*to, error);
        if (error) {
            return archive::Failure(
                Error{.code = ErrorCode::kWriteFailed, .entry = {}, .systemError = error.value()});
        }
        return archive::salvage(*from, *to, {.password = password});
    };
    Salvaged salvaged = salvage();
    if (!salvaged && salvaged.error().isShortOfRoom() &&
        environment_.fileSystem.finishDeletions()) {
        salvaged = salvage();
    }
    if (!salvaged) {
        return salvaged;
    }
    std::optional<FileSystem::Contents> found = FileSystem::contents(*to);
    if (!found) {
        return archive::systemFailure(ErrorCode::kReadFailed);
    }
    contents_ = *std::move(found);
    return salvaged;
}

// The check bytes of what is damaged may be damaged too: what tells is what comes out.
bool SalvageJob::fits(const archive::Password& password) {
    salvaged_ = run(&password);
    return !hasLost(ErrorCode::kWrongPassword);
}

bool SalvageJob::hasLost(ErrorCode reason) const {
    return salvaged_ && std::any_of(salvaged_->lostEntries.begin(),
                                    salvaged_->lostEntries.end(),
                                    [reason](const auto& lost) { return lost.reason == reason; });
}

void SalvageJob::goOn(PasswordRequest::Password password) {
    password_ = std::move(password);
    // Who gave it hears first that it fits.
    environment_.mainQueue.async([job = shared_from_this()] { job->finish(); });
}

void SalvageJob::endWithout(bool /*wasWrong*/) {
    finish();
}

void SalvageJob::finish() {
    JobReport report(OperationType::kUnzip, archive_);
    report.setPassword(password_);
    if (!salvaged_ || salvaged_->recovered == 0) {
        Error reason{.code = ErrorCode::kDamagedData, .entry = {}};
        if (!salvaged_) {
            reason = std::move(salvaged_.error());
        } else if (!salvaged_->lostEntries.empty()) {
            reason.code = salvaged_->lostEntries.front().reason;
        }
        report.addFailure(std::move(reason));
        completion_(std::nullopt, report);
        return;
    }
    report.setSalvage(*std::move(salvaged_));
    report.setHiddenItems(std::move(contents_.hidden));
    completion_(std::move(contents_.items), report);
}

}  // namespace pellumar
