#include "screens/UnzipViewController.h"

#include <utility>

#include "screens/FileTableViewCell.h"

namespace pellumar {
namespace {

const QString kFileCell = QStringLiteral("FileTableViewCell");

}  // namespace

UnzipViewController::UnzipViewController(const ScreenServices& services,
                                         QList<QUrl> urls,
                                         JobReport report)
    : UIViewController(services.ui),
      services_(services),
      details_(services.mainQueue, services.documents.backgroundQueue),
      urls_(std::move(urls)),
      report_(std::move(report)) {}

void UnzipViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    setTitle(QStringLiteral("Unzipped Files"));
    tableView_ = outlet<UITableView>(view(), QStringLiteral("tableView"));
    tableView_->registerCell(
        [this] { return makeController<FileTableViewCell>(context(), kFileCell, details_); },
        kFileCell);
    tableView_->setDataSource(weakly(this));
    navigationItem()->setRightBarButtonItem(QStringLiteral("Share All"),
                                            whileAlive([this] { shareAll(); }));
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

void UnzipViewController::shareFile(IndexPath at) {
    shareFiles({urlAt(at)}, [](const auto&...) {});
}

void UnzipViewController::shareAll() {
    shareFiles(urls_, [this](const auto&...) { askForReviewOnce(); });
}

}  // namespace pellumar
