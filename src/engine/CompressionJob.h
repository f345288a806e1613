#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <memory>
#include <optional>
#include <vector>

#include "archive/Archive.h"
#include "engine/ZipManager.h"

namespace pellumar {

// One run of ZipManager::zip: made on the calling thread, run on the background queue, finished on
// the main queue.
class CompressionJob {
  public:
    // Deletes what stands at the archive's place and creates the archive, if that can be done.
    CompressionJob(const ZipManager::Environment& environment,
                   const QList<QUrl>& urls,
                   const QString& title,
                   ZipManager::ArchiveCompletion completion,
                   std::shared_ptr<const archive::Password> password);

    // Adds the files; progress goes to the delegate of `manager` as long as there are both.
    void run(const std::weak_ptr<ZipManager>& manager);

    // Reports how it went.
    void finish();

  private:
    // Whether the file that was added is in the archive as it was picked.
    [[nodiscard]] bool isIn(const archive::EntrySource& source,
                            const QUrl& url,
                            const archive::Result<>& added);
    // Tells of a file that is done.
    void end(bool isIn, const std::weak_ptr<ZipManager>& manager);
    void closeArchive();
    void tellDelegate(const std::weak_ptr<ZipManager>& manager) const;

    ZipManager::Environment environment_;
    QList<QUrl> urls_;
    QUrl archiveUrl_;
    ZipManager::ArchiveCompletion completion_;
    std::optional<archive::Archive> archive_;
    JobReport report_;
    bool success_ = true;
    qint64 finished_ = 0;
};

}  // namespace pellumar
