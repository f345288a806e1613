#include "platform/documents/FolderModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/documents/UIDocumentInteractionController.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

using Rows = std::vector<FolderListing::Row>;

// Each costs a pass over all rows behind it.
constexpr std::size_t kMostRuns = 64;

// Rows that stand side by side.
struct Run {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// Those of `all` that are not among `some`, which it holds in their order.
std::vector<Run> othersIn(const Rows& all, const Rows& some) {
    std::vector<Run> others;
    std::size_t known = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (known < some.size() && all[i].name == some[known].name) {
            ++known;
        } else if (!others.empty() && others.back().end == i) {
            ++others.back().end;
        } else {
            others.push_back({.begin = i, .end = i + 1});
        }
    }
    return others;
}

auto rowAt(Rows& rows, std::size_t position) {
    return rows.begin() + static_cast<std::ptrdiff_t>(position);
}

}  // namespace

FolderModel::FolderModel(QStringList types,
                         PickedFiles& picked,
                         DispatchQueue& mainQueue,
                         FolderQueue& folders)
    : question_{.folder = {}, .types = std::move(types)},
      picked_(picked),
      mainQueue_(mainQueue),
      folders_(folders) {
    connect(&picked_, &PickedFiles::changed, this, [this] {
        if (rowCount() > 0) {
            emit dataChanged(index(0), index(rowCount() - 1), {kIsSelected});
        }
    });
}

FolderModel::~FolderModel() = default;

void FolderModel::setFolder(const fs::path& folder) {
    question_.folder = folder;
    read();
}

void FolderModel::showHidden() {
    question_.showsHidden = true;
    read();
}

void FolderModel::read() {
    beginResetModel();
    listing_ = {};
    endResetModel();
    isLoading_ = true;
    emit loadingChanged();
    latest_ = std::make_shared<FolderModel*>(this);
    const std::weak_ptr<FolderModel*> asker = latest_;
    readFolder(
        question_,
        folders_,
        [asker] { return !asker.expired(); },
        [asker, &mainQueue = mainQueue_](FolderListing listing, bool isComplete) {
            auto read = std::make_shared<FolderListing>(std::move(listing));
            mainQueue.async([asker, read, isComplete] {
                if (const auto model = asker.lock()) {
                    (*model)->take(std::move(*read), isComplete);
                }
            });
        });
}

void FolderModel::take(FolderListing listing, bool isComplete) {
    const std::vector<Run> others = othersIn(listing.rows, listing_.rows);
    if (others.size() <= kMostRuns) {
        // What is there already stays, under the finger that may be on it.
        for (const Run& run : others) {
            beginInsertRows({}, static_cast<int>(run.begin), static_cast<int>(run.end) - 1);
            listing_.rows.insert(rowAt(listing_.rows, run.begin),
                                 std::make_move_iterator(rowAt(listing.rows, run.begin)),
                                 std::make_move_iterator(rowAt(listing.rows, run.end)));
            endInsertRows();
        }
        listing.rows = std::move(listing_.rows);
        listing_ = std::move(listing);
    } else {
        beginResetModel();
        listing_ = std::move(listing);
        endResetModel();
    }
    isLoading_ = !isComplete;
    emit loadingChanged();
}

QString FolderModel::notShown() const {
    const int others =
        question_.types.contains(QStringLiteral("public.folder")) ? 0 : listing_.otherCount;
    const int hidden = listing_.hiddenCount;
    const QString ofOthers = others == 1 ? tr("1 file of another kind")
                                         : tr("%Ln files of other kinds", nullptr, others);
    const QString ofHidden =
        hidden == 1 ? tr("1 hidden item") : tr("%Ln hidden items", nullptr, hidden);
    if (others > 0 && hidden > 0) {
        return tr("%1 and %2 are not shown").arg(ofOthers, ofHidden);
    }
    if (others + hidden == 0) {
        return {};
    }
    const QString what = others > 0 ? ofOthers : ofHidden;
    return others + hidden == 1 ? tr("%1 is not shown").arg(what)
                                : tr("%1 are not shown").arg(what);
}

void FolderModel::toggle(int row) {
    if (row < 0 || row >= rowCount() || isFolder(row)) {
        return;
    }
    if (picked_.contains(path(row))) {
        picked_.remove(path(row));
    } else {
        picked_.add({path(row)});
    }
}

void FolderModel::pickAll() {
    std::vector<fs::path> files;
    for (int row = 0; row < rowCount(); ++row) {
        if (!isFolder(row)) {
            files.push_back(path(row));
        }
    }
    picked_.add(files);
}

bool FolderModel::isFolder(int row) const {
    return listing_.rows[static_cast<std::size_t>(row)].isFolder;
}

fs::path FolderModel::path(int row) const {
    return question_.folder / listing_.rows[static_cast<std::size_t>(row)].name;
}

int FolderModel::rowOf(const std::string& name) const {
    const auto row = std::find_if(listing_.rows.begin(),
                                  listing_.rows.end(),
                                  [&name](const auto& each) { return each.name == name; });
    return row == listing_.rows.end() ? -1 : static_cast<int>(row - listing_.rows.begin());
}

int FolderModel::rowStartingWith(const QString& start, int from) const {
    const int count = rowCount();
    for (int i = 0; i < count; ++i) {
        const int row = (std::max(from, 0) + i) % count;
        const QString& name = listing_.rows[static_cast<std::size_t>(row)].shownName;
        if (name.startsWith(start, Qt::CaseInsensitive)) {
            return row;
        }
    }
    return -1;
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(listing_.rows.size());
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const auto& row = listing_.rows[static_cast<std::size_t>(index.row())];
    switch (role) {
        case kName:
            return row.shownName;
        case kDetail:
            return row.isFolder
                       ? QString()
                       : sizeText(static_cast<qint64>(row.size)) + ", " + timeText(row.changed);
        case kIconName:
            return row.isFolder ? QStringLiteral("folder")
                                : UIDocumentInteractionController::fileIcons(row.shownName).last();
        case kIsFolder:
            return row.isFolder;
        case kIsSelected:
            return picked_.contains(path(index.row()));
        default:
            return {};
    }
}

QHash<int, QByteArray> FolderModel::roleNames() const {
    return {{kName, "name"},
            {kDetail, "detail"},
            {kIconName, "iconName"},
            {kIsFolder, "isFolder"},
            {kIsSelected, "isSelected"}};
}

}  // namespace pellumar
