#include "screens/ZipViewController.h"

#include <QSet>
#include <QTimer>
#include <chrono>
#include <climits>

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
      CanRunJobs(services.jobs),
      services_(services),
      photos_(services.photos, services.jobs.console) {}

void ZipViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    zipManager().setDelegate(weakly(this));
    setTitle(tr("Zip Files"));
}

void ZipViewController::fromFilesTapped() {
    services_.analytics.logEvent(event::kTappedFiles);
    showFilePicker();
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
    // No overlay meanwhile.
    const auto picked = whileAlive([this](const std::vector<PHAsset>& assets) {
        photos_.renderImages(assets, whileAlive([this](const PhotoSource::Images& images) {
                                 askTitleForImages(images);
                             }));
    });
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
    if (!identifiers.isEmpty()) {
        picker->dismissSelf(true, whileAlive([this, identifiers] { takeAssets(identifiers); }));
    } else {
        picker->dismissSelf(true);
    }
}

void ZipViewController::takeAssets(const QStringList& identifiers) {
    beginJob();
    // What goes has time to be gone.
    constexpr std::chrono::milliseconds kPause(250);
    const auto fetch = [this, assets = photos_.assets(identifiers)] { fetchMedia(assets); };
    QTimer::singleShot(kPause, this, whileAlive(fetch));
}

void ZipViewController::fetchMedia(const std::vector<PHAsset>& assets) {
    showHud(tr("Fetching media"))->setDetailsLabel(tr("Keep the app open"));
    photos_.fetchFiles(
        assets, whileAlive([this, count = assets.size()](const QList<QUrl>& urls) {
            if (static_cast<std::size_t>(urls.size()) != count) {
                hud()->hide(false);
                showFailureAlert(
                    tr("Failed to fetch items. Verify your Internet connection and try again."));
                endJob();
            } else {
                nameApart(urls);
            }
        }));
}

void ZipViewController::nameApart(const QList<QUrl>& urls) {
    QSet<QString> names;
    for (const QUrl& url : urls) {
        names.insert(url.fileName().toCaseFolded());
    }
    const auto named = [this](const tl::expected<QList<QUrl>, QString>& files) {
        hud()->hide(false);
        if (files) {
            askTitleForFiles(*files);
        } else {
            showFailureAlert(files.error());
        }
        endJob();
    };
    if (names.size() == urls.size()) {
        named(urls);
        return;
    }
    // Albums may have a "beach.jpg" each. In an archive, one of them would be lost.
    services_.documents.inbox.import(
        urls, [](double /*done*/) {}, whileAlive(named));
}

void ZipViewController::askTitleForFiles(const QList<QUrl>& urls) {
    askTitle(tr("Zip Files"), [this, urls](const QString& title, const auto& password) {
        compress(tr("Compressing files"),
                 [urls, title, password](auto& manager, const auto& completion) {
                     manager.zip(urls, title, completion, password);
                 });
    });
}

void ZipViewController::askTitleForImages(const PhotoSource::Images& images) {
    askTitle(tr("Zip Images"), [this, images](const QString& title, const auto& password) {
        compress(tr("Compressing images"),
                 [images, title, password](auto& manager, const auto& completion) {
                     manager.zip(images, title, completion, password);
                 });
    });
}

void ZipViewController::askTitle(const QString& alertTitle, const Save& save) {
    const auto alert = makeController<UIAlertController>(
        context(), alertTitle, tr("Please, give a title to your zip file"));
    alert->addTextField(tr("Filename"),
                        {.refused = QStringLiteral("/") + QChar(QChar::Null),
                         .refusedHint = tr("A title cannot have a slash in it."),
                         .mostBytes = NAME_MAX - kExtension.size(),
                         .lengthHint = tr("A title cannot be longer than this.")});
    alert->offerSecret(
        {.offer = tr("Add a password…"),
         .placeholder = tr("Password"),
         .note = tr("Whoever opens the archive needs it. Names and sizes can be seen "
                    "without it.")});
    const std::weak_ptr<UIAlertController> asked = alert;
    const auto answered = whileAlive([asked, save] {
        const auto closed = asked.lock();
        const std::optional<QString> title = closed ? closed->textFieldText() : std::nullopt;
        const std::string secret = closed ? closed->secret().toStdString() : std::string();
        save(title.value_or(kDefaultTitle).remove(kExtension),
             secret.empty() ? nullptr : std::make_shared<const archive::Password>(secret));
    });
    alert->addAction({tr("Save"), UIAlertActionStyle::kDefault, answered});
    alert->addAction({tr("Cancel"), UIAlertActionStyle::kCancel, {}});
    present(alert, true);
}

}  // namespace pellumar
