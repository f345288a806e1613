#include "platform/documents/UIDocumentPickerViewController.h"

#include <QStandardPaths>
#include <QStorageInfo>
#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

const QString kLastFolder = QStringLiteral("LastFolder");

bool isFolder(const fs::path& path) {
    std::error_code unknown;
    return fs::is_directory(path, unknown);
}

}  // namespace

UIDocumentPickerViewController::UIDocumentPickerViewController(const UIContext& context,
                                                               const DocumentServices& services,
                                                               QStringList documentTypes,
                                                               bool allowsMultipleSelection)
    : UIViewController(context),
      services_(services),
      types_(std::move(documentTypes)),
      several_(allowsMultipleSelection),
      places_(findPlaces()),
      model_(types_, services.mainQueue, services.backgroundQueue) {
    connect(&model_, &FolderModel::selectionChanged, this, [this] { emit confirmChanged(); });
}

UIDocumentPickerViewController::~UIDocumentPickerViewController() {
    if (import_) {
        import_->cancel();
    }
}

std::vector<UIDocumentPickerViewController::Place> UIDocumentPickerViewController::findPlaces() {
    std::vector<Place> places;
    const auto add = [&places](const QString& name, const QString& icon, const QString& folder) {
        const fs::path path(folder.toStdString());
        const auto isSame = [&path](const Place& place) { return place.folder == path; };
        if (!folder.isEmpty() && isFolder(path) &&
            std::none_of(places.begin(), places.end(), isSame)) {
            places.push_back({name, icon, path});
        }
    };
    using Paths = QStandardPaths;
    add(tr("Home"), "home", Paths::writableLocation(Paths::HomeLocation));
    add(tr("Downloads"), "download", Paths::writableLocation(Paths::DownloadLocation));
    add(tr("Documents"), "document", Paths::writableLocation(Paths::DocumentsLocation));
    add(tr("Pictures"), "image", Paths::writableLocation(Paths::PicturesLocation));
    add(tr("Videos"), "video", Paths::writableLocation(Paths::MoviesLocation));
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        if (root.startsWith("/media/") || root.startsWith("/run/media/")) {
            add(volume.displayName(), "drive", root);
        }
    }
    return places;
}

void UIDocumentPickerViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    const QByteArray last = services_.memory.value(kLastFolder).toByteArray();
    const fs::path folder(last.toStdString());
    if (!last.isEmpty() && isFolder(folder)) {
        open(folder);
    } else {
        open(places_.empty() ? fs::path("/") : places_.front().folder);
    }
}

void UIDocumentPickerViewController::open(const fs::path& folder) {
    model_.setFolder(folder);
    emit folderChanged();
    emit confirmChanged();
}

void UIDocumentPickerViewController::rowTapped(int row) {
    if (row < 0 || row >= model_.rowCount()) {
        return;
    }
    if (model_.isFolder(row)) {
        open(model_.path(row));
        return;
    }
    model_.toggle(row, several_);
    if (!several_) {
        confirmTapped();
    }
}

void UIDocumentPickerViewController::upTapped() {
    if (canGoUp()) {
        open(model_.folder().parent_path());
    }
}

void UIDocumentPickerViewController::placeTapped(int place) {
    if (place >= 0 && static_cast<std::size_t>(place) < places_.size()) {
        open(places_[static_cast<std::size_t>(place)].folder);
    }
}

void UIDocumentPickerViewController::confirmTapped() {
    if (!canConfirm() || (import_ && !import_->isCancelled())) {
        return;
    }
    services_.memory.setValue(kLastFolder, QByteArray::fromStdString(model_.folder().string()));
    if (picksFolder()) {
        finish({fileUrl(model_.folder())});
    } else {
        import(model_.selectedUrls());
    }
}

void UIDocumentPickerViewController::import(const QList<QUrl>& urls) {
    failure_.clear();
    emit failureChanged();
    hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
    hud_->setLabel(tr("Copying"));
    hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    const auto self = weakly(this);
    import_ = services_.inbox.import(
        urls,
        [self](double done) {
            if (const auto picker = self.lock()) {
                picker->hud_->setProgress(static_cast<float>(done));
            }
        },
        [self](const tl::expected<QList<QUrl>, QString>& copies) {
            const auto picker = self.lock();
            if (!picker) {
                return;
            }
            picker->import_.reset();
            picker->hud_->hide(true);
            if (copies) {
                picker->finish(*copies);
            } else {
                picker->failure_ = tr("Could not be copied: %1").arg(copies.error());
                emit picker->failureChanged();
            }
        });
}

void UIDocumentPickerViewController::finish(const QList<QUrl>& urls) {
    dismiss(true, [delegate = delegate_, urls] {
        if (const auto told = delegate.lock()) {
            told->documentPickerDidPickDocuments(urls);
        }
    });
}

void UIDocumentPickerViewController::cancelTapped() {
    if (import_) {
        import_->cancel();
    }
    dismiss(true, [delegate = delegate_] {
        if (const auto told = delegate.lock()) {
            told->documentPickerWasCancelled();
        }
    });
}

bool UIDocumentPickerViewController::goBack() {
    cancelTapped();
    return true;
}

bool UIDocumentPickerViewController::picksFolder() const {
    return types_.contains(QStringLiteral("public.folder"));
}

bool UIDocumentPickerViewController::canConfirm() const {
    return picksFolder() || model_.selectedCount() > 0;
}

QString UIDocumentPickerViewController::heading() const {
    if (picksFolder()) {
        return tr("Save to");
    }
    return types_.contains(QStringLiteral("public.zip-archive")) ? tr("Choose an archive")
                                                                 : tr("Choose files");
}

QString UIDocumentPickerViewController::confirmTitle() const {
    if (picksFolder()) {
        return tr("Save here");
    }
    return several_ ? tr("Add") : tr("Open");
}

QString UIDocumentPickerViewController::folderName() const {
    const int place = currentPlace();
    if (place >= 0) {
        return places_[static_cast<std::size_t>(place)].name;
    }
    const std::string name = model_.folder().filename().string();
    return name.empty() ? QStringLiteral("/") : QString::fromStdString(name);
}

QStringList UIDocumentPickerViewController::placeNames() const {
    QStringList names;
    for (const Place& place : places_) {
        names.append(place.name);
    }
    return names;
}

QStringList UIDocumentPickerViewController::placeIcons() const {
    QStringList icons;
    for (const Place& place : places_) {
        icons.append(place.icon);
    }
    return icons;
}

int UIDocumentPickerViewController::currentPlace() const {
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (places_[i].folder == model_.folder()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

}  // namespace pellumar
