#include "platform/FileUrl.h"

#include <QByteArray>
#include <QByteArrayView>
#include <algorithm>
#include <string>

namespace pellumar {

QUrl fileUrl(const std::filesystem::path& path) {
    const std::string& native = path.native();
    // Two slashes in front would make the first folder the name of a machine.
    const std::size_t root = std::min(native.find_first_not_of('/'), native.size());
    const QByteArray bytes = '/' + QByteArray::fromStdString(native.substr(root));
    if (QByteArrayView(bytes).isValidUtf8()) {
        return QUrl::fromLocalFile(QString::fromUtf8(bytes));
    }
    return QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/!$&'()*+,;=:@"));
}

std::optional<std::filesystem::path> localPath(const QUrl& url) {
    const bool here = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    if (!url.isLocalFile() || !here) {
        return std::nullopt;
    }
    const QByteArray bytes =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    if (!bytes.startsWith('/') || bytes.contains('\0')) {
        return std::nullopt;
    }
    return std::filesystem::path(bytes.toStdString());
}

std::filesystem::path withoutTrailingSlash(const std::filesystem::path& path) {
    const std::string& native = path.native();
    const std::size_t last = native.find_last_not_of('/');
    return last == std::string::npos ? path : std::filesystem::path(native.substr(0, last + 1));
}

QString lastPathComponent(const QUrl& url) {
    const QUrl plain = url.adjusted(QUrl::StripTrailingSlash);
    return plain.path() == QLatin1String("/") ? plain.path() : plain.fileName();
}

}  // namespace pellumar
