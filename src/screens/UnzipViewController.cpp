#include "screens/UnzipViewController.h"

#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/documents/FileCopy.h"
#include "platform/kit/UINavigationController.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ShowInFiles.h"
#include "screens/FileTableViewCell.h"
#include "screens/RemarksViewController.h"

namespace pellumar {
namespace {

const QString kFileCell = QStringLiteral("FileTableViewCell");
// What is tapped twice within it is meant once.
constexpr std::chrono::seconds kOneTap{1};

}  // namespace

UnzipViewController::UnzipViewController(const ScreenServices& services,
                                         QList<QUrl> urls,
                                         JobReport report)
    : UIViewController(services.ui),
      services_(services),
      urls_(std::move(urls)),
      report_(std::move(report)) {}

void UnzipViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    setTitle(tr("Unzipped Files"));
    tableView_ = outlet<UITableView>(view(), QStringLiteral("tableView"));
    tableView_->registerCell(
        [this] {
            return makeController<FileTableViewCell>(context(), kFileCell, services_.documents);
        },
        kFileCell);
    tableView_->setDataSource(weakly(this));
    navigationItem()->setRightBarButtonItem(tr("Share All"), whileAlive([this] { shareAll(); }));
    sumUp();
}

int UnzipViewController::numberOfSections(const UITableView& /*tableView*/) const {
    return 1;
}

int UnzipViewController::numberOfRows(const UITableView& /*tableView*/, int /*section*/) const {
    return static_cast<int>(urls_.size());
}

std::shared_ptr<UITableViewCell> UnzipViewController::cellForRow(UITableView& tableView,
                                                                 IndexPath indexPath) {
    const auto cell =
        std::dynamic_pointer_cast<FileTableViewCell>(tableView.dequeueReusableCell(kFileCell));
    if (!cell) {
        return makeController<UITableViewCell>(context());
    }
    cell->configure(urlAt(indexPath), indexPath);
    cell->setDelegate(weakly(this));
    return cell;
}

const QUrl& UnzipViewController::urlAt(IndexPath indexPath) const {
    if (indexPath.row < 0 || indexPath.row >= urls_.size()) {
        qFatal("There is no row %d among %lld files.",
               indexPath.row,
               static_cast<long long>(urls_.size()));
    }
    return urls_[indexPath.row];
}

void UnzipViewController::sumUp() {
    question_ = askInBackground<qint64>(
        services_.mainQueue,
        services_.documents.backgroundQueue,
        [items = items()](const auto& isWanted) {
            std::uint64_t bytes = 0;
            for (qsizetype i = 0; i < items.size() && isWanted(); ++i) {
                bytes += treeSize(localPath(items[i]).value_or(std::filesystem::path()));
            }
            return static_cast<qint64>(bytes);
        },
        [this](qint64 bytes) {
            bytes_ = bytes;
            emit changed();
        });
}

QString UnzipViewController::detail() const {
    const bool areHidden = urls_.isEmpty() && hiddenCount() > 0;
    const int number = areHidden ? hiddenCount() : listedCount();
    const QString count =
        areHidden ? tr("%Ln hidden items", nullptr, number) : tr("%Ln items", nullptr, number);
    return bytes_ ? count + QStringLiteral(", ") + sizeText(*bytes_) : count;
}

QString UnzipViewController::archiveBelow() const {
    const auto stack = navigationController();
    if (!stack) {
        return {};
    }
    const auto& screens = stack->viewControllers();
    const auto self = std::find(screens.begin(), screens.end(), shared_from_this());
    if (self == screens.begin() || self == screens.end()) {
        return {};
    }
    const auto below = std::dynamic_pointer_cast<UnzipViewController>(*std::prev(self));
    return below ? isolated(below->archiveName()) : QString();
}

QString UnzipViewController::remarks() const {
    return RemarksViewController::headingOf(Remarks::of(report_));
}

void UnzipViewController::showRemarks() {
    present(makeController<RemarksViewController>(context(), Remarks::of(report_)), true);
}

QString UnzipViewController::savedTo() const {
    const auto first = saved_.isEmpty() ? std::nullopt : localPath(saved_.first());
    return first ? isolated(fileUrl(first->parent_path()).fileName()) : QString();
}

void UnzipViewController::shareFile(IndexPath at) {
    shareFiles({urlAt(at)}, [this](const auto& /*activity*/, bool completed, const auto&...) {
        mayLeave_ = mayLeave_ || completed;
    });
}

void UnzipViewController::shareAll() {
    shareFiles(urls_, [this](const auto& /*activity*/, bool completed, const auto&...) {
        mayLeave_ = mayLeave_ || completed;
        askForReviewOnce();
    });
}

void UnzipViewController::saveAll() {
    QString folder = archiveName();
    if (folder.endsWith(QStringLiteral(".zip"), Qt::CaseInsensitive)) {
        folder.chop(4);
    }
    const bool isName =
        !folder.isEmpty() && folder != QStringLiteral(".") && folder != QStringLiteral("..");
    saveFiles({.items = items(), .newFolder = isName ? folder : tr("Unzipped files")},
              [this](const QList<QUrl>& saved) {
                  saved_ = saved;
                  showSaved_ = showInFilesAction(saved);
                  mayLeave_ = true;
                  emit changed();
              });
}

void UnzipViewController::showSaved() {
    if (showSaved_.handler) {
        showSaved_.handler();
    }
}

void UnzipViewController::openFile(IndexPath at) {
    if (opening_ || !lastOpened_.hasExpired()) {
        return;
    }
    const bool isFolder = QFileInfo(urlAt(at).toLocalFile()).isDir();
    const QString type = isFolder ? activity::kShowInFiles : activity::kOpenWith;
    // As from the share sheet: under a second name, where it outlives this list and what is changed
    // is not lost.
    opening_ = services_.sharing.keep({urlAt(at)}, [this, type](const auto& items) {
        opening_.reset();
        lastOpened_.setRemainingTime(kOneTap);
        const auto opened = whileAlive([this](const ShareTarget::Result& result) {
            if (!result.error.isEmpty()) {
                showFailureAlert(result.error);
            }
        });
        if (!items) {
            opened(ShareTarget::Result{.error = items.error()});
            return;
        }
        for (const ShareTarget& target : services_.sharing.targets) {
            if (target.activityType == type) {
                target.perform(*items, opened);
            }
        }
    });
}

int UnzipViewController::rowOf(const QString& letters, int from) const {
    const qsizetype first = std::max(from, 0);
    for (qsizetype i = 0; i < urls_.size(); ++i) {
        const qsizetype row = (first + i) % urls_.size();
        if (urls_[row].fileName().startsWith(letters, Qt::CaseInsensitive)) {
            return static_cast<int>(row);
        }
    }
    return -1;
}

bool UnzipViewController::mayGoBack() {
    if (stopSaving()) {
        return false;
    }
    if (mayLeave_ || items().isEmpty()) {
        return true;
    }
    mayLeave_ = true;
    askToKeep({.title = tr("Nothing was kept"),
               .message = tr("What was unzipped goes when you leave."),
               .keep = [this] { saveAll(); },
               .leaveTitle = tr("Leave"),
               .leave =
                   [this] {
                       // Under the question, other results may have come above these.
                       const auto stack = navigationController();
                       if (stack && stack->topViewController().get() == this) {
                           stack->popViewController(true);
                       }
                   },
               .stay = [this] { mayLeave_ = false; }});
    return false;
}

}  // namespace pellumar
