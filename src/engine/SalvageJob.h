#pragma once

#include <QUrl>
#include <memory>

#include "archive/base/Error.h"
#include "engine/ZipManager.h"

namespace pellumar {

// One run of ZipManager::salvage: made and finished on the main queue, run on the background queue.
class SalvageJob : public std::enable_shared_from_this<SalvageJob> {
  public:
    SalvageJob(const ZipManager::Environment& environment,
               QUrl archive,
               ZipManager::FilesCompletion completion,
               std::shared_ptr<const archive::Password> password);

    // Ends with the completion on the main queue.
    void start();

  private:
    [[nodiscard]] archive::Result<FileSystem::Contents> run();
    void finish(archive::Result<FileSystem::Contents> salvaged);

    const ZipManager::Environment environment_;
    const QUrl archive_;
    const QUrl destination_;
    const ZipManager::FilesCompletion completion_;
    const std::shared_ptr<const archive::Password> password_;
    JobReport report_;
};

}  // namespace pellumar
