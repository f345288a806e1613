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
                       ZipManager::FilesCompletion completion)
    : environment_(environment),
      archive_(std::move(archive)),
      destination_(environment.fileSystem.newExtraction()),
      completion_(std::move(completion)),
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
    std::error_code error;
    std::filesystem::create_directories(*to, error);
    if (error) {
        return archive::Failure(
            Error{.code = ErrorCode::kWriteFailed, .entry = {}, .systemError = error.value()});
    }
    Result<archive::SalvageReport> salvaged = archive::salvage(*from, *to);
    if (!salvaged) {
        return archive::passOn(salvaged);
    }
    if (salvaged->recovered == 0) {
        return archive::failure(ErrorCode::kDamagedData);
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
