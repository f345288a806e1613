#include "platform/documents/UIDocumentPickerViewController.h"

#include <QTimer>
#include <chrono>
#include <system_error>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/TextList.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// What takes less needs no overlay, which would only flicker.
constexpr std::chrono::milliseconds kImportPause(300);
constexpr qsizetype kLongestName = 255;

}  // namespace

UIDocumentPickerViewController::UIDocumentPickerViewController(const UIContext& context,
                                                               const DocumentServices& services,
                                                               QStringList documentTypes,
                                                               bool allowsMultipleSelection)
    : UIViewController(context),
      services_(services),
      types_(std::move(documentTypes)),
      several_(allowsMultipleSelection),
      places_(services.mainQueue, services.folders),
      model_(types_, picked_, services.mainQueue, services.folders) {
    connect(&picked_, &PickedFiles::changed, this, [this] { emit confirmChanged(); });
    connect(&places_, &PickerPlaces::changed, this, [this] {
        emit placesChanged();
        emit folderChanged();
    });
    connect(&model_, &FolderModel::loadingChanged, this, [this] { listingChanged(); });
}

UIDocumentPickerViewController::~UIDocumentPickerViewController() {
    if (import_) {
        import_->cancel();
    }
}

// Archives come from elsewhere than what is put into them, and neither is saved there.
QString UIDocumentPickerViewController::memoryKey() const {
    if (picksFolder()) {
        return QStringLiteral("LastSaveFolder");
    }
    return types_.contains(QStringLiteral("public.zip-archive"))
               ? QStringLiteral("LastArchiveFolder")
               : QStringLiteral("LastFileFolder");
}

void UIDocumentPickerViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    const QByteArray last = services_.memory.value(memoryKey()).toByteArray();
    model_.setFolder(last.isEmpty() ? places_.home() : fs::path(last.toStdString()));
    emit folderChanged();
}

void UIDocumentPickerViewController::open(const fs::path& folder) {
    if (state_ != State::kChoosing) {
        return;
    }
    isFirstFolder_ = false;
    const bool isAbove = folder == model_.folder().parent_path();
    cameFrom_ = isAbove ? model_.folder().filename().string() : std::string();
    setFailure({});
    model_.setFolder(folder);
    emit folderChanged();
}

void UIDocumentPickerViewController::listingChanged() {
    if (model_.isLoading()) {
        return;
    }
    const bool isShort = model_.isUnreadable() && model_.rowCount() > 0;
    if (std::exchange(isFirstFolder_, false) && model_.isUnreadable() && !isShort &&
        model_.folder() != places_.home()) {
        open(places_.home());
        return;
    }
    if (isShort) {
        setFailure(tr("This folder could not be read to its end"));
    }
    emit listed(std::max(0, model_.rowOf(cameFrom_)));
}

void UIDocumentPickerViewController::rowTapped(int row) {
    if (row < 0 || row >= model_.rowCount() || state_ != State::kChoosing) {
        return;
    }
    if (model_.isFolder(row)) {
        open(model_.path(row));
    } else if (several_) {
        model_.toggle(row);
    } else {
        picked_.clear();
        picked_.add({model_.path(row)});
        confirmTapped();
    }
}

void UIDocumentPickerViewController::selectAllTapped() {
    if (several_ && state_ == State::kChoosing) {
        model_.pickAll();
    }
}

void UIDocumentPickerViewController::upTapped() {
    if (canGoUp()) {
        open(model_.folder().parent_path());
    }
}

void UIDocumentPickerViewController::placeTapped(int place) {
    if (place >= 0 && static_cast<std::size_t>(place) < places_.all().size()) {
        open(places_.all()[static_cast<std::size_t>(place)].folder);
    }
}

void UIDocumentPickerViewController::stepTapped(int step) {
    const auto way = places_.wayTo(model_.folder());
    if (step >= 0 && static_cast<std::size_t>(step) < way.size()) {
        open(way[static_cast<std::size_t>(step)].folder);
    }
}

void UIDocumentPickerViewController::newFolderTapped() {
    const auto alert = makeController<UIAlertController>(context(), tr("New folder"), QString());
    alert->addTextField(tr("Name"),
                        {.refused = QStringLiteral("/"),
                         .refusedHint = tr("A name has no slash"),
                         .mostBytes = kLongestName,
                         .lengthHint = tr("A name is no longer than this")});
    const std::weak_ptr<UIAlertController> asked = alert;
    alert->addAction({tr("Create"), UIAlertActionStyle::kDefault, [asked, self = weakly(this)] {
                          const auto closed = asked.lock();
                          const auto picker = self.lock();
                          if (closed && picker) {
                              picker->makeFolder(closed->text());
                          }
                      }});
    alert->addAction({tr("Cancel"), UIAlertActionStyle::kCancel, {}});
    present(alert, true);
}

void UIDocumentPickerViewController::makeFolder(const QString& name) {
    if (name.trimmed().isEmpty()) {
        return;
    }
    // Would lead elsewhere.
    if (name == QStringLiteral(".") || name == QStringLiteral("..") || name.contains('/')) {
        setFailure(tr("A folder cannot be called %1").arg(isolated(name)));
        return;
    }
    const fs::path folder = model_.folder() / name.toStdString();
    services_.backgroundQueue.async(
        [folder, name, self = weakly(this), &main = services_.mainQueue] {
            std::error_code failure;
            // One that is there already is as good.
            fs::create_directory(folder, failure);
            main.async([folder, name, failure, self] {
                const auto picker = self.lock();
                // Whoever has gone elsewhere meanwhile is not brought back.
                if (!picker || picker->model_.folder() != folder.parent_path()) {
                    return;
                }
                if (failure) {
                    picker->setFailure(
                        tr("%1 could not be created: %2")
                            .arg(isolated(name), QString::fromStdString(failure.message())));
                } else {
                    picker->open(folder);
                }
            });
        });
}

void UIDocumentPickerViewController::confirmTapped() {
    if (!canConfirm() || state_ != State::kChoosing) {
        return;
    }
    services_.memory.setValue(memoryKey(), QByteArray::fromStdString(model_.folder().string()));
    if (picksFolder()) {
        finish({fileUrl(model_.folder())});
    } else {
        import(picked_.urls());
    }
}

void UIDocumentPickerViewController::import(const QList<QUrl>& urls) {
    setFailure({});
    state_ = State::kImporting;
    const auto self = weakly(this);
    import_ = services_.inbox.import(
        urls,
        [self](double done) {
            const auto picker = self.lock();
            if (picker && picker->hud_) {
                picker->hud_->setProgress(static_cast<float>(done));
            }
        },
        [self](const tl::expected<QList<QUrl>, QString>& copies) {
            if (const auto picker = self.lock()) {
                picker->imported(copies);
            }
        });
    auto* const pause = new QTimer(this);
    pause->setSingleShot(true);
    connect(pause, &QTimer::timeout, this, [this, pause, import = import_] {
        pause->deleteLater();
        if (import_ == import && !import->isCancelled()) {
            hud_ = MBProgressHUD::showAddedTo(context(), view(), true);
            hud_->setLabel(tr("Copying"));
            hud_->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
        }
    });
    pause->start(kImportPause);
}

void UIDocumentPickerViewController::imported(const tl::expected<QList<QUrl>, QString>& copies) {
    import_.reset();
    if (hud_) {
        std::exchange(hud_, nullptr)->hide(true);
    }
    if (copies) {
        finish(*copies);
        return;
    }
    state_ = State::kChoosing;
    if (!several_) {
        picked_.clear();
    }
    setFailure(tr("Could not be opened: %1").arg(copies.error()));
}

void UIDocumentPickerViewController::finish(const QList<QUrl>& urls) {
    state_ = State::kDone;
    dismissSelf(true, [delegate = delegate_, urls] {
        if (const auto told = delegate.lock()) {
            told->documentPickerDidPickDocuments(urls);
        }
    });
}

void UIDocumentPickerViewController::cancelTapped() {
    if (std::exchange(state_, State::kDone) == State::kDone) {
        return;
    }
    if (import_) {
        import_->cancel();
    }
    dismissSelf(true, [delegate = delegate_] {
        if (const auto told = delegate.lock()) {
            told->documentPickerWasCancelled();
        }
    });
}

bool UIDocumentPickerViewController::goBack() {
    cancelTapped();
    return true;
}

void UIDocumentPickerViewController::setFailure(const QString& failure) {
    failure_ = failure;
    emit failureChanged();
}

bool UIDocumentPickerViewController::picksFolder() const {
    return types_.contains(QStringLiteral("public.folder"));
}

bool UIDocumentPickerViewController::canConfirm() const {
    return picksFolder() || picked_.count() > 0;
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
    if (!several_) {
        return tr("Open");
    }
    return picked_.count() > 1 ? tr("Add (%L1)").arg(picked_.count()) : tr("Add");
}

QString UIDocumentPickerViewController::folderName() const {
    return way().last();
}

QStringList UIDocumentPickerViewController::way() const {
    return textList(places_.wayTo(model_.folder()), &PickerPlaces::Place::name);
}

QStringList UIDocumentPickerViewController::placeNames() const {
    return textList(places_.all(), &PickerPlaces::Place::name);
}

QStringList UIDocumentPickerViewController::placeIcons() const {
    return textList(places_.all(), &PickerPlaces::Place::icon);
}

int UIDocumentPickerViewController::currentPlace() const {
    return places_.indexOf(model_.folder());
}

}  // namespace pellumar
