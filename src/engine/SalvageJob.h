#pragma once

#include <QUrl>
#include <memory>

#include "archive/base/Error.h"
#include "archive/base/Salvaging.h"
#include "engine/LockedJob.h"
#include "engine/ZipManager.h"

namespace pellumar {

// One run of ZipManager::salvage: made and finished on the main queue, run on the background queue,
// again with each password that is tried.
class SalvageJob : public LockedJob, public std::enable_shared_from_this<SalvageJob> {
  public:
    // `password` is tried first, if there is one.
    SalvageJob(const ZipManager::Environment& environment,
               QUrl archive,
               ZipManager::FilesCompletion completion,
               PasswordRequest::Password password,
               PasswordQuestion question);

    // Ends with the completion on the main queue.
    void start();

  private:
    using Salvaged = archive::Result<archive::SalvageReport>;

    // In the background:
    [[nodiscard]] Salvaged run(const archive::Password* password);
    [[nodiscard]] bool fits(const archive::Password& password) override;

    // Whether something was lost for this reason.
    [[nodiscard]] bool hasLost(archive::ErrorCode reason) const;

    // On the main queue:
    void goOn(PasswordRequest::Password password) override;
    void endWithout(bool wasWrong) override;
    void finish();

    const ZipManager::Environment environment_;
    const QUrl archive_;
    const QUrl destination_;
    const ZipManager::FilesCompletion completion_;
    const PasswordQuestion question_;
    PasswordRequest::Password password_;
    // What the last run came to, and what stands at the top of its folder.
    Salvaged salvaged_;
    FileSystem::Contents contents_;
};

}  // namespace pellumar
