#pragma once

#include <QList>
#include <QUrl>
#include <filesystem>
#include <memory>
#include <optional>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/base/Error.h"
#include "engine/LockedJob.h"
#include "engine/ZipManager.h"

namespace pellumar {

// One run of ZipManager::unzip. It is made and finished on the main queue and runs on the
// background queue, twice if its archive needs a password; that is opened once, so the password
// fits what is extracted. Whatever else it holds is released on the main queue.
class ExtractionJob : public LockedJob, public std::enable_shared_from_this<ExtractionJob> {
  public:
    // Without a `question`, an archive that needs a password fails.
    ExtractionJob(const ZipManager::Environment& environment,
                  QUrl archive,
                  ZipManager::FilesCompletion completion,
                  PasswordQuestion question);

    // Ends with the completion on the main queue.
    void start();

  private:
    // In the background:
    [[nodiscard]] archive::Result<FileSystem::Contents> run();
    [[nodiscard]] archive::Result<archive::UnzipReport> extract(const std::filesystem::path& from,
                                                                const std::filesystem::path& to);
    [[nodiscard]] archive::Result<archive::UnzipReport> unzip(const std::filesystem::path& from,
                                                              const std::filesystem::path& to);
    // Whether another password, or one at all, is all that is missing. Then the next run finds its
    // place empty.
    [[nodiscard]] bool isLocked(archive::ErrorCode failure) const;
    [[nodiscard]] bool fits(const archive::Password& password) override;

    // On the main queue:
    void goOn(PasswordRequest::Password password) override;
    void endWithout(bool wasWrong) override;
    void finish(archive::Result<FileSystem::Contents> extracted);

    const ZipManager::Environment environment_;
    const QUrl archive_;
    const QUrl destination_;
    const ZipManager::FilesCompletion completion_;
    const PasswordQuestion question_;
    // From the first run until nobody needs it, closed in the background.
    std::shared_ptr<const archive::Reader> reader_;
    PasswordRequest::Password password_;
    // Why the password was asked for.
    archive::Error missing_;
    JobReport report_;
};

}  // namespace pellumar
