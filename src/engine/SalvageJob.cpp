#include "engine/SalvageJob.h"

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
                       std::shared_ptr<const archive::Password> password)
    : environment_(environment),
      archive_(std::move(archive)),
      destination_(environment.fileSystem.newExtraction()),
      completion_(std::move(completion)),
      password_(std::move(password)),
      report_(OperationType::kUnzip, archive_) {}

void SalvageJob::start() {
    environment_.backgroundQueue.async([job = shared_from_this()]() mutable {
        Result<FileSystem::Contents> salvaged = job->run();
        DispatchQueue& main = job->environment_.mainQueue;
        main.async(
            [job = std::move(job), salvaged = std::move(salvaged)] { job->finish(salvaged); });
    });
}

Result<FileSystem::Contents> SalvageJob::run() {
    const std::optional<path> from = localPath(archive_);
    const std::optional<path> to = localPath(destination_);
    if (!from || !to) {
        return archive::failure(ErrorCode::kInvalidArgument);
    }
    const auto salvage = [&]() -> Result<archive::SalvageReport> {
        std::error_code error;
        std::filesystem::create_directories(*to, error);
        if (error) {
            return archive::Failure(
                Error{.code = ErrorCode::kWriteFailed, .entry = {}, .systemError = error.value()});
        }
        return archive::salvage(*from, *to, {.password = password_.get()});
    };
    Result<archive::SalvageReport> salvaged = salvage();
    if (!salvaged && salvaged.error().isShortOfRoom() &&
        environment_.fileSystem.finishDeletions()) {
        environment_.fileSystem.removeItem(destination_);
        salvaged = salvage();
    }
    if (!salvaged) {
        return archive::passOn(salvaged);
    }
    if (salvaged->recovered == 0) {
        return archive::failure(salvaged->lostEntries.empty()
                                    ? ErrorCode::kDamagedData
                                    : salvaged->lostEntries.front().reason);
    }
    report_.setSalvage(*std::move(salvaged));
    std::optional<FileSystem::Contents> found = FileSystem::contents(*to);
    if (!found) {
        return archive::systemFailure(ErrorCode::kReadFailed);
    }
    return *std::move(found);
}

void SalvageJob::finish(Result<FileSystem::Contents> salvaged) {
    if (!salvaged) {
        report_.addFailure(std::move(salvaged.error()));
        completion_(std::nullopt, report_);
        return;
    }
    report_.setHiddenItems(std::move(salvaged->hidden));
    completion_(std::move(salvaged->items), report_);
}

}  // namespace pellumar
