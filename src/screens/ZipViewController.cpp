#include "screens/ZipViewController.h"

#include <QTimer>
#include <chrono>

#include "events/EventNames.h"
#include "platform/kit/UIAlertController.h"
#include "platform/photos/ImagePickerController.h"

namespace pellumar {
namespace {

const QString kDefaultTitle = QStringLiteral("ZipFile");
const QString kExtension = QStringLiteral(".zip");

}  // namespace

ZipViewController::ZipViewController(const ScreenServices& services)
    : UIViewController(services.ui),
      services_(services),
      photos_(services.photos, services.jobs.console),
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

void ZipViewController::fromPhotosTapped() {
    services_.analytics.logEvent(event::kTappedPhotos);
    if (context().device.systemVersion >= kSystemPickerVersion) {
        openSystemPicker();
    } else {
        openEarlierPicker();
    }
}

void ZipViewController::openSystemPicker() {
    constexpr int kSelectionLimit = 100;
    const auto picker = makeController<PHPickerViewController>(
        context(),
        services_.photos,
        PHPickerConfiguration{.isBoundToLibrary = true,
                              .selectionLimit = kSelectionLimit,
                              .filter = {PHAssetMediaType::kVideo, PHAssetMediaType::kImage}});
    picker->setDelegate(weakly(this));
    present(picker, true);
}

void ZipViewController::openEarlierPicker() {
    const auto picked = [self = weakly(this)](const std::vector<PHAsset>& assets) {
        const auto screen = self.lock();
        if (!screen) {
            return;
        }
        // No overlay meanwhile.
        screen->photos_.renderImages(assets, [self](const PhotoSource::Images& images) {
            if (const auto composer = self.lock()) {
                composer->askTitleForImages(images);
            }
        });
    };
    present(makeController<ImagePickerController>(context(), services_.photos, picked), true);
}

void ZipViewController::pickerDidFinishPicking(
    const std::shared_ptr<PHPickerViewController>& picker,
    const QList<PHPickerResult>& results) {
    QStringList identifiers;
    for (const PHPickerResult& result : results) {
        if (result.assetIdentifier) {
            identifiers.append(*result.assetIdentifier);
        }
    }
    picker->dismiss(true, [self = weakly(this), identifiers] {
        const auto screen = self.lock();
        if (!screen || identifiers.isEmpty()) {
            return;
        }
        const std::vector<PHAsset> assets = screen->photos_.assets(identifiers);
        // What goes has time to be gone.
        auto* const pause = new QTimer(screen.get());
        pause->setSingleShot(true);
        connect(pause, &QTimer::timeout, screen.get(), [self, assets, pause] {
            pause->deleteLater();
            if (const auto composer = self.lock()) {
                composer->fetchMedia(assets);
            }
        });
        pause->start(std::chrono::milliseconds(250));
    });
}

void ZipViewController::fetchMedia(const std::vector<PHAsset>& assets) {
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setLabel(QStringLiteral("Fetching media"));
    hud_->setDetailsLabel(QStringLiteral("Keep the app open"));
    photos_.fetchFiles(
        assets, [self = weakly(this), count = assets.size()](const QList<QUrl>& urls) {
            const auto screen = self.lock();
            if (!screen) {
                return;
            }
            screen->hud_->hide(false);
            if (static_cast<std::size_t>(urls.size()) == count) {
                screen->askTitleForFiles(urls);
                return;
            }
            const auto alert = makeController<UIAlertController>(
                screen->context(),
                QStringLiteral("Error"),
                QStringLiteral(
                    "Failed to fetch items. Verify your Internet connection and try again."));
            alert->addAction({QStringLiteral("OK"), UIAlertActionStyle::kDefault, {}});
            screen->present(alert, true);
        });
}

void ZipViewController::askTitleForFiles(const QList<QUrl>& urls) {
    askTitle(QStringLiteral("Zip Files"),
             QStringLiteral("Compressing files"),
             [&manager = *zipManager_, urls](const QString& title, const auto& completion) {
                 manager.zip(urls, title, completion);
             });
}

void ZipViewController::askTitleForImages(const PhotoSource::Images& images) {
    askTitle(QStringLiteral("Zip Images"),
             QStringLiteral("Compressing images"),
             [&manager = *zipManager_, images](const QString& title, const auto& completion) {
                 manager.zip(images, title, completion);
             });
}

void ZipViewController::askTitle(const QString& alertTitle,
                                 const QString& label,
                                 const Compression& compression) {
    const auto alert = makeController<UIAlertController>(
        context(), alertTitle, QStringLiteral("Please, give a title to your zip file"));
    alert->addTextField(QStringLiteral("Filename"));
    const std::weak_ptr<UIAlertController> asked = alert;
    const auto save = [self = weakly(this), asked, label, compression] {
        const auto screen = self.lock();
        const auto answered = asked.lock();
        if (screen) {
            screen->compress(
                answered ? answered->textFieldText() : std::nullopt, label, compression);
        }
    };
    alert->addAction({QStringLiteral("Save"), UIAlertActionStyle::kDefault, save});
    alert->addAction({QStringLiteral("Cancel"), UIAlertActionStyle::kCancel, {}});
    present(alert, true);
}

void ZipViewController::compress(const std::optional<QString>& title,
                                 const QString& label,
                                 const Compression& compression) {
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    hud_->setLabel(label);
    compression(title.value_or(kDefaultTitle).remove(kExtension),
                [self = weakly(this), awake = services_.sleep.keepAwake(tr("Making an archive"))](
                    const std::optional<QUrl>& archive) {
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
    shareFiles(
        *this, context(), services_.sharing, {*archive}, [self = weakly(this)](const auto&...) {
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
