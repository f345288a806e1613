#pragma once

#include <functional>
#include <memory>

#include "engine/ZipManager.h"
#include "platform/kit/MBProgressHUD.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanKeepFiles.h"
#include "screens/CanShareFiles.h"

namespace pellumar {

// A screen that has archive jobs done: owns their manager, whose delegate it is, and the overlay
// that covers the screen meanwhile.
class CanRunJobs : public ZipManagerDelegate,
                   public CanKeepFiles,
                   public CanShareFiles,
                   public CanAskFeedback {
  public:
    [[nodiscard]] std::shared_ptr<MBProgressHUD> hud() const { return hud_; }

    void zipManagerDidAddFile(qint64 done, qint64 total) override;

  protected:
    explicit CanRunJobs(const ZipManager::Environment& jobs)
        : zipManager_(ZipManager::create(jobs)) {}

    [[nodiscard]] ZipManager& zipManager() { return *zipManager_; }

    // Lays a new overlay over the screen, above those that are there.
    std::shared_ptr<MBProgressHUD> showHud(const QString& label);
    // Between them, a job of this screen occupies the window.
    void beginJob();
    void endJob() { job_.reset(); }

    // Starts a compression, and calls the completion with its end.
    using Compression =
        std::function<void(ZipManager& manager, const ZipManager::ArchiveCompletion& completion)>;
    // Compresses under an overlay of that label; then the share sheet offers the archive, or the
    // overlay stays under the failure alert. An archive that was neither saved nor shared is asked
    // about, once.
    void compress(const QString& label, const Compression& compression);

  private:
    void offer(const QUrl& archive);
    void sayWhatFailed(const JobReport& report);

    const std::shared_ptr<ZipManager> zipManager_;
    std::shared_ptr<MBProgressHUD> hud_;
    // Goes with the screen, whatever becomes of the job.
    std::shared_ptr<void> job_;
};

}  // namespace pellumar
