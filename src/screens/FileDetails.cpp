#include "screens/FileDetails.h"

#include <QCoreApplication>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

QString detailOf(const QUrl& url) {
    const auto path = localPath(url);
    std::error_code failure;
    if (!path) {
        return {};
    }
    if (!fs::is_directory(*path, failure)) {
        const std::uintmax_t size = fs::file_size(*path, failure);
        return failure ? QString() : sizeText(static_cast<qint64>(size));
    }
    int count = 0;
    fs::directory_iterator each(*path, failure);
    for (; !failure && each != fs::directory_iterator(); each.increment(failure)) {
        ++count;
    }
    return count == 1 ? QCoreApplication::translate("FileDetails", "1 item")
                      : QCoreApplication::translate("FileDetails", "%1 items").arg(count);
}

}  // namespace

std::shared_ptr<void> FileDetails::ask(const QUrl& url, Answer answer) {
    auto question = std::make_shared<Answer>(std::move(answer));
    const std::weak_ptr<Answer> weak = question;
    backgroundQueue_.async([weak, url, &mainQueue = mainQueue_] {
        // A row that was scrolled past long ago.
        if (weak.expired()) {
            return;
        }
        mainQueue.async([weak, detail = detailOf(url)] {
            if (const auto asker = weak.lock()) {
                (*asker)(detail);
            }
        });
    });
    return question;
}

}  // namespace pellumar
