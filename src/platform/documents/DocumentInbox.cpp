#include "platform/documents/DocumentInbox.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QUuid>
#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/UserFolders.h"
#include "platform/documents/FileCopy.h"
#include "platform/documents/FileNames.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

std::string newName() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
}

QString describe(const fs::path& item, const std::error_code& reason) {
    return QString::fromStdString(lastComponent(item) + ": " + reason.message());
}

std::error_code lastImportError() {
    return {errno, std::generic_category()};
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
    using Copies = tl::expected<QList<QUrl>, QString>;

    fs::path folder;
    QList<QUrl> items;
    std::shared_ptr<Originals> originals;
    std::shared_ptr<DocumentInbox::Import> import;

    [[nodiscard]] Copies run(DispatchQueue& queue, const DocumentInbox::Progress& progress) const {
        std::error_code failure;
        fs::create_directories(folder, failure);
        if (failure) {
            return tl::unexpected(describe(folder, failure));
        }
        std::vector<fs::path> paths;
        std::uint64_t total = 0;
        for (const QUrl& item : items) {
            const auto path = localPath(item);
            if (!path) {
                return tl::unexpected(item.toDisplayString());
            }
            // What was picked may be a link; what is meant is the thing behind it.
            paths.push_back(fs::canonical(*path, failure));
            if (failure) {
                return tl::unexpected(describe(*path, failure));
            }
            const bool isFolder = fs::is_directory(paths.back(), failure);
            if (failure) {
                return tl::unexpected(describe(*path, failure));
            }
            total += isFolder ? treeSize(paths.back()) : 0;
        }
        Meter meter(total, queue, progress);
        return take(paths, meter);
    }

    void removeAll() const {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

  private:
    [[nodiscard]] Copies take(const std::vector<fs::path>& paths, Meter& meter) const {
        QList<QUrl> copies;
        DistinctNames names;
        for (std::size_t i = 0; i < paths.size() && !import->isCancelled(); ++i) {
            std::error_code failure;
            const auto picked = localPath(items[static_cast<qsizetype>(i)]);
            const bool isFolder = fs::is_directory(paths[i], failure);
            if (failure) {
                return tl::unexpected(describe(*picked, failure));
            }
            const fs::path to = folder / names.take(lastComponent(*picked), isFolder);
            if (isFolder) {
                const auto copied = copyTree(paths[i], to, [&](std::uint64_t bytes) {
                    meter.add(bytes);
                    return !import->isCancelled();
                });
                failure = copied ? std::error_code() : copied.error().reason;
            } else {
                failure = takeFile(paths[i], to);
            }
            if (failure) {
                return tl::unexpected(describe(*picked, failure));
            }
            copies.append(fileUrl(to));
        }
        return copies;
    }

    // Without copying a byte: the user waits for none of it, and it needs no room.
    [[nodiscard]] std::error_code takeFile(const fs::path& from, const fs::path& to) const {
        // A pipe must not hold us up.
        const int number = ::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        if (number < 0) {
            return lastImportError();
        }
        std::error_code failure;
        struct stat status {};
        if (::fstat(number, &status) != 0) {
            failure = lastImportError();
        } else if (!S_ISREG(status.st_mode)) {
            failure = make_error_code(std::errc::invalid_argument);
        } else if (!shareBlocks(number, to)) {
            originals->note(to, status);
            fs::create_symlink(from, to, failure);
        }
        ::close(number);
        return failure;
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
    const Task task{folder_ / newName(), items, originals_, import};
    backgroundQueue_.async([task,
                            &mainQueue = mainQueue_,
                            &backgroundQueue = backgroundQueue_,
                            progress = std::move(progress),
                            completion = std::move(completion)] {
        auto copies = task.run(mainQueue, progress);
        if (!copies || task.import->isCancelled()) {
            task.removeAll();
        }
        mainQueue.async([task, &backgroundQueue, completion, copies = std::move(copies)] {
            if (!task.import->isCancelled()) {
                completion(copies);
            } else if (copies) {
                // Cancelled when all had been done, and nobody had been told yet.
                backgroundQueue.async([task] { task.removeAll(); });
            }
        });
    });
    return import;
}

}  // namespace pellumar
