#include "screens/FileDetails.h"

#include <QCoreApplication>
#include <filesystem>
#include <system_error>

#include "platform/DisplayText.h"
#include "platform/FileUrl.h"

namespace pellumar {

namespace fs = std::filesystem;

QString fileDetails(const QUrl& url) {
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

}  // namespace pellumar
