#include "platform/documents/DocumentInbox.h"

#include <QUuid>
#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/UserFolders.h"
#include "platform/documents/FileCopy.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

std::string newName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

QString describe(const FileCopyError& error) {
    return QString::fromStdString(error.path.filename().string() + ": " + error.reason.message());
}

// The last component, also of a folder whose URL ends with a slash.
fs::path nameOf(const fs::path& path) {
    return path.has_filename() ? path.filename() : path.parent_path().filename();
}

// Reports at most a hundred times, however small the steps.
class Meter {
  public:
    Meter(std::uint64_t total, DispatchQueue& queue, DocumentInbox::Progress progress)
        : total_(total), queue_(queue), progress_(std::move(progress)) {}

    void add(std::uint64_t bytes) {
        done_ += bytes;
        const auto percent = total_ == 0 ? 100 : done_ * 100 / total_;
        if (percent > reported_ && progress_) {
            reported_ = percent;
            queue_.async([progress = progress_, percent] {
                progress(std::min(1.0, static_cast<double>(percent) / 100));
            });
        }
    }

  private:
    const std::uint64_t total_;
    DispatchQueue& queue_;
    const DocumentInbox::Progress progress_;
    std::uint64_t done_ = 0;
    std::uint64_t reported_ = 0;
};

// One import as the background sees it.
struct Task {
    fs::path folder;
    QList<QUrl> items;
    std::shared_ptr<DocumentInbox::Import> import;

    [[nodiscard]] tl::expected<QList<QUrl>, QString> run(Meter& meter) const {
        QList<QUrl> copies;
        std::error_code failure;
        for (const QUrl& item : items) {
            const auto from = localPath(item);
            const fs::path place = folder / std::to_string(copies.size());
            fs::create_directories(place, failure);
            if (!from || failure) {
                return tl::unexpected(item.toDisplayString());
            }
            const fs::path to = place / nameOf(*from);
            const auto copied = copyTree(*from, to, [&](std::uint64_t bytes) {
                meter.add(bytes);
                return !import->isCancelled();
            });
            if (!copied) {
                return tl::unexpected(describe(copied.error()));
            }
            copies.append(fileUrl(to));
        }
        return copies;
    }
};

}  // namespace

DocumentInbox::DocumentInbox(fs::path folder,
                             DispatchQueue& mainQueue,
                             DispatchQueue& backgroundQueue)
    : folder_(std::move(folder)), mainQueue_(mainQueue), backgroundQueue_(backgroundQueue) {}

fs::path DocumentInbox::standardFolder() {
    return UserFolders::cache("Inbox");
}

void DocumentInbox::clear() {
    std::error_code failure;
    fs::path aside = folder_;
    aside += '.';
    aside += newName();
    fs::rename(folder_, aside, failure);
    // With it goes what an earlier run had no time to delete.
    backgroundQueue_.async(
        [parent = folder_.parent_path(), prefix = folder_.filename().string() + "."] {
            std::error_code ignored;
            std::vector<fs::path> old;
            fs::directory_iterator each(parent, ignored);
            for (; !ignored && each != fs::directory_iterator(); each.increment(ignored)) {
                if (each->path().filename().string().starts_with(prefix)) {
                    old.push_back(each->path());
                }
            }
            for (const fs::path& path : old) {
                fs::remove_all(path, ignored);
            }
        });
}

std::shared_ptr<DocumentInbox::Import> DocumentInbox::import(const QList<QUrl>& items,
                                                             Progress progress,
                                                             Completion completion) {
    auto import = std::make_shared<Import>();
    const Task task{folder_ / newName(), items, import};
    backgroundQueue_.async([task,
                            &mainQueue = mainQueue_,
                            progress = std::move(progress),
                            completion = std::move(completion)] {
        std::uint64_t total = 0;
        for (const QUrl& item : task.items) {
            const auto path = localPath(item);
            total += path ? treeSize(*path) : 0;
        }
        Meter meter(total, mainQueue, progress);
        auto copies = task.run(meter);
        if (!copies || task.import->isCancelled()) {
            std::error_code ignored;
            fs::remove_all(task.folder, ignored);
        }
        mainQueue.async([import = task.import, completion, copies = std::move(copies)] {
            if (!import->isCancelled()) {
                completion(copies);
            }
        });
    });
    return import;
}

}  // namespace pellumar
