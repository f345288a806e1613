#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

#include "archive/base/Progress.h"
#include "engine/FileSystem.h"
#include "engine/JobReport.h"
#include "engine/PasswordRequest.h"
#include "engine/ZipManagerDelegate.h"
#include "events/PellumarAnalytics.h"
#include "platform/Console.h"
#include "platform/DispatchQueue.h"
#include "platform/Image.h"
#include "platform/Originals.h"

namespace pellumar {

// Starts the jobs: making an archive of files or of pictures, extracting one, and rescuing what is
// whole in a damaged one.
//
// A job runs on the background queue and ends with one call of its completion on the main queue,
// whose value tells success; but for a rescue, a usage event has been reported just before. Jobs
// know nothing of each other: two of the same title write the same file.
//
// A job that finds too little room waits until what the workspace was emptied of is deleted, and
// tries again.
//
// A job lives on when its manager is released: its completion comes, only the delegate hears no
// more. Screens call the operations from the main thread; they return at once.
class ZipManager : public std::enable_shared_from_this<ZipManager> {
  public:
    // What the jobs work with. All of it must outlive every job, not only the manager.
    struct Environment {
        const FileSystem& fileSystem;
        const PellumarAnalytics& analytics;
        Console& console;
        DispatchQueue& mainQueue;
        DispatchQueue& backgroundQueue;
        // Of files that may have changed since they were picked. May be null.
        std::shared_ptr<const Originals> originals = nullptr;
        // Asks every job but a rescue to end as a failed one (kCancelled), which leaves nothing.
        std::stop_token stop = {};
        // Told how far each of them is. May be empty.
        archive::ProgressHandler progress = {};
    };

    // The value tells success. The report beside it tells why not, and is good for the call only.
    using ArchiveCompletion = std::function<void(std::optional<QUrl>, const JobReport&)>;
    using FilesCompletion = std::function<void(std::optional<QList<QUrl>>, const JobReport&)>;

    [[nodiscard]] static std::shared_ptr<ZipManager> create(const Environment& environment);

    // The delegate is held weakly. May be set and read from any thread. A job that calls it leaves
    // its release to the main queue, so a screen is never destroyed on another thread.
    void setDelegate(std::weak_ptr<ZipManagerDelegate> delegate);
    [[nodiscard]] std::shared_ptr<ZipManagerDelegate> delegate() const;

    // Makes the archive `title` of the workspace; one of the same title is replaced when the new
    // one is whole, and deleted if the new one cannot even be created. Each file
    // becomes an entry at the root of the archive under its own name; of a folder the entry is
    // empty.
    //
    // If a file cannot be added, or was changed since it was picked, the others are; the completion
    // gets nothing, and what has been written stays. If the archive cannot even be created, the job
    // passes all files over and completes with the URL all the same.
    //
    // With a password, which may be null, what is in the files is encrypted; names and sizes are
    // not.
    void zip(const QList<QUrl>& urls,
             const QString& title,
             ArchiveCompletion completion,
             std::shared_ptr<const archive::Password> password = nullptr);

    // The same with pictures, which are staged as JPEG files first ("0.jpg", "1.jpg", ...). What is
    // in the staging folder already goes into the archive too, and it is not created: while there
    // is none, the job ends without a completion. It ends so too if the manager is released before
    // the pictures are staged. The folder is emptied before the completion.
    void zip(std::vector<std::shared_ptr<const Image>> images,
             const QString& title,
             ArchiveCompletion completion,
             std::shared_ptr<const archive::Password> password = nullptr);

    // Extracts an archive into a new folder of the workspace. The completion gets what stands at
    // the top of it, hidden things left out, in natural order. After a failure what was
    // extracted stays. If the archive needs a password, `question` is asked for it on the main
    // queue; without one that is a failure.
    void unzip(const QUrl& url, FilesCompletion completion, PasswordQuestion question = {}) const;

    // Gets out of a damaged archive what is whole, into a new folder of the workspace. The
    // completion gets what stands at the top of it, and the report what is lost; nothing if nothing
    // is whole. Not an extraction: no usage event tells of it. `password`, which may be null, is
    // tried first; where it does not fit all that is encrypted, `question` is asked for another.
    // Given up, what came out without is the outcome.
    void salvage(const QUrl& url,
                 FilesCompletion completion,
                 std::shared_ptr<const archive::Password> password,
                 PasswordQuestion question = {}) const;

  private:
    explicit ZipManager(const Environment& environment) : environment_(environment) {}

    Environment environment_;
    mutable std::mutex mutex_;
    std::weak_ptr<ZipManagerDelegate> delegate_;
};

}  // namespace pellumar
