#include "platform/documents/FolderModel.h"

#include <QLocale>
#include <QMimeDatabase>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <system_error>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/NaturalOrder.h"
#include "platform/documents/UIDocumentInteractionController.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// Enough for the system's database of types to judge a file.
constexpr qsizetype kSniffedBytes = 4096;

// Whether it is an archive: by its name, or, where the name tells nothing, by how it begins. Other
// formats that are ZIP files inside have names of their own.
bool isZipArchive(const fs::path& file, const QString& name) {
    if (name.endsWith(QStringLiteral(".zip"), Qt::CaseInsensitive)) {
        return true;
    }
    const QMimeDatabase types;
    if (!types.mimeTypesForFileName(name).isEmpty()) {
        return false;
    }
    // By its bytes: what Qt makes of a name loses those that are not UTF-8.
    std::ifstream stream(file, std::ios::binary);
    QByteArray start(kSniffedBytes, '\0');
    stream.read(start.data(), start.size());
    start.truncate(static_cast<qsizetype>(stream.gcount()));
    return types.mimeTypeForData(start).name() == QStringLiteral("application/zip");
}

// Whether a document picker for these types offers a regular file.
bool matches(const QStringList& types, const fs::path& file, const QString& name) {
    return types.contains(QStringLiteral("public.item")) ||
           (types.contains(QStringLiteral("public.zip-archive")) && isZipArchive(file, name));
}

QDateTime changedAt(const fs::directory_entry& entry) {
    std::error_code unknown;
    const auto time = entry.last_write_time(unknown);
    if (unknown) {
        return {};
    }
    const auto since = std::chrono::file_clock::to_sys(time).time_since_epoch();
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

}  // namespace

FolderModel::FolderModel(QStringList types,
                         DispatchQueue& mainQueue,
                         DispatchQueue& backgroundQueue)
    : types_(std::move(types)), mainQueue_(mainQueue), backgroundQueue_(backgroundQueue) {}

FolderModel::~FolderModel() = default;

void FolderModel::setFolder(const fs::path& folder) {
    beginResetModel();
    folder_ = folder;
    rows_.clear();
    selected_.clear();
    endResetModel();
    isLoading_ = true;
    isUnreadable_ = false;
    emit loadingChanged();
    emit selectionChanged();
    latest_ = std::make_shared<FolderModel*>(this);
    const std::weak_ptr<FolderModel*> asker = latest_;
    backgroundQueue_.async([asker, folder, types = types_, &mainQueue = mainQueue_] {
        auto listing = std::make_shared<Listing>(read(folder, types));
        mainQueue.async([asker, listing] {
            if (const auto model = asker.lock()) {
                (*model)->take(std::move(*listing));
            }
        });
    });
}

void FolderModel::sort(std::vector<Row>& rows) {
    std::vector<std::string> names;
    names.reserve(rows.size());
    for (const Row& row : rows) {
        names.push_back(row.name);
    }
    std::vector<Row> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t position : naturalOrder(names)) {
        sorted.push_back(std::move(rows[position]));
    }
    std::stable_partition(
        sorted.begin(), sorted.end(), [](const Row& row) { return row.isFolder; });
    rows = std::move(sorted);
}

FolderModel::Listing FolderModel::read(const fs::path& folder, const QStringList& types) {
    Listing listing;
    std::error_code failure;
    fs::directory_iterator each(folder, failure);
    listing.isUnreadable = static_cast<bool>(failure);
    for (; !failure && each != fs::directory_iterator(); each.increment(failure)) {
        std::error_code unknown;
        Row row;
        row.name = each->path().filename().string();
        row.shownName = QString::fromStdString(row.name);
        row.isFolder = each->is_directory(unknown);
        const bool isFile = !row.isFolder && each->is_regular_file(unknown);
        if (row.name.starts_with('.') ||
            (!row.isFolder && !(isFile && matches(types, each->path(), row.shownName)))) {
            continue;
        }
        row.size = isFile ? each->file_size(unknown) : 0;
        row.changed = changedAt(*each);
        listing.rows.push_back(std::move(row));
    }
    sort(listing.rows);
    return listing;
}

void FolderModel::take(Listing listing) {
    beginResetModel();
    rows_ = std::move(listing.rows);
    endResetModel();
    isLoading_ = false;
    isUnreadable_ = listing.isUnreadable;
    emit loadingChanged();
}

void FolderModel::toggle(int row, bool several) {
    if (row < 0 || row >= rowCount() || isFolder(row)) {
        return;
    }
    const bool wasSelected = several && selected_.contains(row);
    if (!several) {
        selected_.clear();
    }
    if (wasSelected) {
        selected_.remove(row);
    } else {
        selected_.insert(row);
    }
    emit dataChanged(
        index(several ? row : 0), index(several ? row : rowCount() - 1), {kIsSelected});
    emit selectionChanged();
}

QList<QUrl> FolderModel::selectedUrls() const {
    QList<int> rows(selected_.begin(), selected_.end());
    std::sort(rows.begin(), rows.end());
    QList<QUrl> urls;
    for (const int row : rows) {
        urls.append(fileUrl(path(row)));
    }
    return urls;
}

bool FolderModel::isFolder(int row) const {
    return rows_[static_cast<std::size_t>(row)].isFolder;
}

fs::path FolderModel::path(int row) const {
    return folder_ / rows_[static_cast<std::size_t>(row)].name;
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case kName:
            return row.shownName;
        case kDetail: {
            const QString time = timeText(row.changed);
            return row.isFolder ? time : sizeText(static_cast<qint64>(row.size)) + ", " + time;
        }
        case kIconName:
            return row.isFolder ? QStringLiteral("folder")
                                : UIDocumentInteractionController(fileUrl(folder_ / row.name))
                                      .icons()
                                      .last();
        case kIsFolder:
            return row.isFolder;
        case kIsSelected:
            return selected_.contains(index.row());
        case kIsPickable:
            return !row.isFolder;
        default:
            return {};
    }
}

QHash<int, QByteArray> FolderModel::roleNames() const {
    return {{kName, "name"},
            {kDetail, "detail"},
            {kIconName, "iconName"},
            {kIsFolder, "isFolder"},
            {kIsSelected, "isSelected"},
            {kIsPickable, "isPickable"}};
}

}  // namespace pellumar
