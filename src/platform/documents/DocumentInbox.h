#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <tl/expected.hpp>

#include "platform/DispatchQueue.h"
#include "platform/Originals.h"

namespace pellumar {

// Where what the user picks is taken to before the application works on it. A file that the file
// system can copy without writing its bytes again is copied; of any other there is a link to the
// original here, and originals() tells later whether that is still what was picked: copying
// gigabytes first would cost their time and their room. A folder is copied. For the main thread.
class DocumentInbox {
  public:
    // `folder` is the inbox's own, and need not exist. The queues must outlive every import.
    DocumentInbox(std::filesystem::path folder,
                  DispatchQueue& mainQueue,
                  DispatchQueue& backgroundQueue);

    // $XDG_CACHE_HOME/pellumar-zip/Inbox, or that in ~/.cache.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // Empties the inbox. What is in it is out of the way when this returns, and deleted in the
    // background.
    void clear();

    // Stops an import that somebody else may still run.
    class Import {
      public:
        void cancel() { isCancelled_ = true; }
        [[nodiscard]] bool isCancelled() const { return isCancelled_; }

      private:
        std::atomic<bool> isCancelled_ = false;
    };
    // The part that is done, from 0 to 1; on the main queue.
    using Progress = std::function<void(double done)>;
    // The copies in the order of `items`, each under its own name, or under a numbered one where
    // two would be called the same, if only for their large and small letters; or what went wrong,
    // for a person. On the main queue; not called for a cancelled import.
    using Completion = std::function<void(const tl::expected<QList<QUrl>, QString>& copies)>;

    // Takes files and folders into the inbox, in the background. If one fails, or the import is
    // cancelled, none stays.
    std::shared_ptr<Import> import(const QList<QUrl>& items,
                                   Progress progress,
                                   Completion completion);

    // What the copies lead to.
    [[nodiscard]] std::shared_ptr<const Originals> originals() const { return originals_; }

  private:
    const std::filesystem::path folder_;
    const std::shared_ptr<Originals> originals_ = std::make_shared<Originals>();
    DispatchQueue& mainQueue_;
    DispatchQueue& backgroundQueue_;
};

}  // namespace pellumar
