#include "screens/ZipViewController.h"

#include "events/EventNames.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar {
namespace {

const QString kDefaultTitle = QStringLiteral("ZipFile");
const QString kExtension = QStringLiteral(".zip");

}  // namespace

ZipViewController::ZipViewController(const ScreenServices& services)
    : UIViewController(services.ui),
      services_(services),
      zipManager_(ZipManager::create(services.jobs)) {}

void ZipViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    zipManager_->setDelegate(weakly(this));
    setTitle(QStringLiteral("Zip Files"));
}

void ZipViewController::fromFilesTapped() {
    services_.analytics.logEvent(event::kTappedFiles);
    showFilePicker(*this, context(), services_.documents, weakly(this));
}

void ZipViewController::documentPickerDidPickDocuments(const QList<QUrl>& urls) {
    if (!urls.isEmpty()) {
        askTitleForFiles(urls);
    }
}

void ZipViewController::askTitleForFiles(const QList<QUrl>& urls) {
    const auto alert =
        makeController<UIAlertController>(context(),
                                          QStringLiteral("Zip Files"),
                                          QStringLiteral("Please, give a title to your zip file"));
    alert->addTextField(QStringLiteral("Filename"));
    const std::weak_ptr<UIAlertController> asked = alert;
    alert->addAction(
        {QStringLiteral("Save"), UIAlertActionStyle::kDefault, [self = weakly(this), asked, urls] {
             const auto screen = self.lock();
             const auto answered = asked.lock();
             if (screen) {
                 screen->compress(urls, answered ? answered->textFieldText() : std::nullopt);
             }
         }});
    alert->addAction({QStringLiteral("Cancel"), UIAlertActionStyle::kCancel, {}});
    present(alert, true);
}

void ZipViewController::compress(const QList<QUrl>& urls, const std::optional<QString>& title) {
    const QString name = title.value_or(kDefaultTitle).remove(kExtension);
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    hud_->setLabel(QStringLiteral("Compressing files"));
    const auto awake = services_.sleep.keepAwake(tr("Making an archive"));
    zipManager_->zip(urls, name, [self = weakly(this), awake](const std::optional<QUrl>& archive) {
        if (const auto screen = self.lock()) {
            screen->finish(archive);
        }
    });
}

void ZipViewController::finish(const std::optional<QUrl>& archive) {
    if (!archive) {
        // The overlay stays under the alert; the way out is to leave the screen.
        showFailureAlert(*this, context());
        return;
    }
    shareFiles(*this,
               context(),
               {services_.documents, services_.shareTargets},
               {*archive},
               [self = weakly(this)](const auto&...) {
                   if (const auto screen = self.lock()) {
                       askForReviewOnce(self,
                                        screen->services_.settings,
                                        screen->services_.review,
                                        screen->services_.mainQueue);
                   }
               });
    hud_->hide(true);
}

void ZipViewController::zipManagerDidAddFile(qint64 done, qint64 total) {
    services_.mainQueue.async([self = weakly(this), done, total] {
        const auto screen = self.lock();
        if (screen && screen->hud_) {
            screen->hud_->setProgress(static_cast<float>(done) / static_cast<float>(total));
        }
    });
}

}  // namespace pellumar
