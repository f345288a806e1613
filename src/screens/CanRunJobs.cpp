#include "screens/CanRunJobs.h"

#include <QCoreApplication>

#include "engine/FailureReason.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

class JobWords {
    Q_DECLARE_TR_FUNCTIONS(JobWords)
};

}  // namespace

std::shared_ptr<MBProgressHUD> CanRunJobs::showHud(const QString& label) {
    hud_ = MBProgressHUD::showAddedTo(services().ui, screen().view(), true);
    hud_->setLabel(label);
    return hud_;
}

void CanRunJobs::beginJob() {
    if (UIWindow* const window = screen().window()) {
        job_ = window->occupy();
    }
}

void CanRunJobs::compress(const QString& label, const Compression& compression) {
    beginJob();
    // That of this run: another may have been shown since.
    const std::weak_ptr<MBProgressHUD> shown = showHud(label);
    hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    const auto awake = services().sleep.keepAwake(JobWords::tr("Making an archive"));
    const auto finished = [this, shown, awake](const std::optional<QUrl>& archive,
                                               const JobReport& report) {
        if (!archive) {
            // The overlay stays under the alert; the way out is to leave the screen.
            showFailureAlert(FailureReason::of(report));
            endJob();
            return;
        }
        offer(*archive);
        sayWhatFailed(report);
        endJob();
        if (const auto hud = shown.lock()) {
            hud->hide(true);
        }
    };
    compression(*zipManager_, whileAlive(finished));
}

void CanRunJobs::offer(const QUrl& archive) {
    const auto save = [this, archive] { saveFiles({.items = {archive}, .newFolder = {}}, {}); };
    shareFiles({archive}, [this, save](const auto& /*activity*/, bool completed, const auto&...) {
        askForReviewOnce();
        if (!completed) {
            askToKeep({.title = JobWords::tr("This archive was not kept"),
                       .message = JobWords::tr("It goes when the app starts the next time."),
                       .keep = save,
                       .leaveTitle = JobWords::tr("Let it go"),
                       .leave = [] {}});
        }
    });
}

// A job whose archive could not be made counts as done; the share sheet finds nothing there.
void CanRunJobs::sayWhatFailed(const JobReport& report) {
    UIWindow* const window = screen().window();
    if (window != nullptr && report.failureCount() > 0) {
        Notice::show(*window, FailureReason::of(report).text, {}, Notice::Stay::kUntilClosed);
    }
}

void CanRunJobs::zipManagerDidAddFile(qint64 done, qint64 total) {
    services().mainQueue.async(whileAlive([this, done, total] {
        if (hud_) {
            hud_->setProgress(static_cast<float>(done) / static_cast<float>(total));
        }
    }));
}

}  // namespace pellumar
