#include "platform/documents/FolderListing.h"

#include <QMimeDatabase>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/NaturalOrder.h"

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

// Puts an entry of the folder where it belongs. What it is must be known, or is looked up here.
void judge(const fs::directory_entry& entry, const FolderQuestion& question, FolderListing& into) {
    std::error_code unknown;
    FolderListing::Row row;
    row.name = entry.path().filename().string();
    row.shownName = QString::fromStdString(row.name);
    row.isFolder = entry.is_directory(unknown);
    const bool isFile = !row.isFolder && entry.is_regular_file(unknown);
    const bool isHidden = row.name.starts_with('.');
    if (!row.isFolder && !(isFile && matches(question.types, entry.path(), row.shownName))) {
        into.otherCount += isFile && !isHidden ? 1 : 0;
    } else if (isHidden && !question.showsHidden) {
        ++into.hiddenCount;
    } else {
        row.size = isFile ? entry.file_size(unknown) : 0;
        row.changed = isFile ? changedAt(entry) : QDateTime();
        into.rows.push_back(std::move(row));
    }
}

void sort(std::vector<FolderListing::Row>& rows) {
    std::vector<std::string> names;
    names.reserve(rows.size());
    for (const auto& row : rows) {
        names.push_back(row.name);
    }
    std::vector<FolderListing::Row> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t position : naturalOrder(names)) {
        sorted.push_back(std::move(rows[position]));
    }
    std::stable_partition(
        sorted.begin(), sorted.end(), [](const auto& row) { return row.isFolder; });
    rows = std::move(sorted);
}

// A folder that is being read.
struct Reading {
    const FolderQuestion question;
    const std::function<bool()> isWanted;
    const std::function<void(FolderListing, bool)> answer;
    std::mutex mutex;
    FolderListing listing;
    std::size_t placesLeft = 0;
};

using Links = std::vector<fs::directory_entry>;

// The links by the places that they lead to, which may hang one by one. If those are many, the last
// ones share one.
std::map<fs::path, Links> byPlace(const Links& links, const fs::path& folder) {
    constexpr std::size_t kMostPlaces = 8;
    std::map<fs::path, Links> places;
    for (const fs::directory_entry& link : links) {
        std::error_code unknown;
        const fs::path target = folder / fs::read_symlink(link.path(), unknown);
        const fs::path place = target.lexically_normal().parent_path();
        const bool mayBeNew = places.size() + 1 < kMostPlaces;
        places[mayBeNew || places.contains(place) ? place : folder / "*"].push_back(link);
    }
    return places;
}

void lookAtLinks(Reading& reading, const Links& links) {
    FolderListing found;
    for (const fs::directory_entry& link : links) {
        if (!reading.isWanted()) {
            return;
        }
        judge(link, reading.question, found);
    }
    const std::lock_guard lock(reading.mutex);
    FolderListing& all = reading.listing;
    std::move(found.rows.begin(), found.rows.end(), std::back_inserter(all.rows));
    all.hiddenCount += found.hiddenCount;
    all.otherCount += found.otherCount;
    sort(all.rows);
    --reading.placesLeft;
    reading.answer(all, reading.placesLeft == 0);
}

// All but the links, which are returned.
Links readEntries(Reading& reading) {
    Links links;
    std::error_code failure;
    fs::directory_iterator each(reading.question.folder, failure);
    for (; !failure && each != fs::directory_iterator() && reading.isWanted();
         each.increment(failure)) {
        std::error_code unknown;
        if (each->is_symlink(unknown)) {
            links.push_back(*each);
        } else {
            judge(*each, reading.question, reading.listing);
        }
    }
    // From its beginning, or from somewhere on.
    reading.listing.isUnreadable = static_cast<bool>(failure);
    sort(reading.listing.rows);
    return links;
}

}  // namespace

void readFolder(const FolderQuestion& question,
                FolderQueue& folders,
                std::function<bool()> isWanted,
                std::function<void(FolderListing, bool)> answer) {
    const std::shared_ptr<Reading> reading(new Reading{.question = question,
                                                       .isWanted = std::move(isWanted),
                                                       .answer = std::move(answer),
                                                       .mutex = {},
                                                       .listing = {}});
    folders.async(question.folder, [reading, &folders] {
        const Links links = readEntries(*reading);
        if (!reading->isWanted()) {
            return;
        }
        const auto places = byPlace(links, reading->question.folder);
        reading->placesLeft = places.size();
        reading->answer(reading->listing, places.empty());
        for (const auto& [place, some] : places) {
            folders.async(place, [reading, some = some] { lookAtLinks(*reading, some); });
        }
    });
}

}  // namespace pellumar
