#pragma once

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

#include "platform/DispatchQueue.h"

namespace pellumar {

// Finds out what there is to say of a file, in the background: counting a large folder takes its
// time. For the main thread.
class FileDetails {
  public:
    // Both must outlive every question.
    FileDetails(DispatchQueue& mainQueue, DispatchQueue& backgroundQueue)
        : mainQueue_(mainQueue), backgroundQueue_(backgroundQueue) {}

    using Answer = std::function<void(const QString& detail)>;

    // "1.2 MB", "3 items". `answer` is called on the main queue, unless what this returns has been
    // released by then.
    [[nodiscard]] std::shared_ptr<void> ask(const QUrl& url, Answer answer);

  private:
    DispatchQueue& mainQueue_;
    DispatchQueue& backgroundQueue_;
};

}  // namespace pellumar
