#include "platform/documents/UIDocumentInteractionController.h"

#include <QMimeDatabase>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

// The first whose name is the type, or one that it inherits, or begins it, gives the icon.
constexpr std::array<std::pair<const char*, const char*>, 27> kIcons{{
    {"inode/directory", "folder"},
    {"application/zip", "archive"},
    {"application/x-tar", "archive"},
    {"application/x-7z-compressed", "archive"},
    {"application/gzip", "archive"},
    {"application/x-xz", "archive"},
    {"application/vnd.rar", "archive"},
    {"application/zstd", "archive"},
    {"application/x-bzip", "archive"},
    {"application/x-compressed-tar", "archive"},
    {"application/x-zstd-compressed-tar", "archive"},
    {"application/pdf", "pdf"},
    {"application/vnd.oasis.opendocument.spreadsheet", "spreadsheet"},
    {"application/vnd.openxmlformats-officedocument.spreadsheetml", "spreadsheet"},
    {"application/vnd.ms-excel", "spreadsheet"},
    {"text/csv", "spreadsheet"},
    {"application/vnd.oasis.opendocument.presentation", "presentation"},
    {"application/vnd.openxmlformats-officedocument.presentationml", "presentation"},
    {"application/vnd.ms-powerpoint", "presentation"},
    {"application/epub+zip", "document"},
    {"application/vnd.oasis.opendocument.text", "document"},
    {"application/vnd.openxmlformats-officedocument.wordprocessingml", "document"},
    {"application/msword", "document"},
    {"image/", "image"},
    {"video/", "video"},
    {"audio/", "audio"},
    {"font/", "font"},
}};

QString iconOf(const QMimeType& type) {
    const QString name = type.name();
    for (const auto& [prefix, icon] : kIcons) {
        if (name.startsWith(QLatin1String(prefix))) {
            return QLatin1String(icon);
        }
    }
    if (type.inherits("text/x-csrc") || type.inherits("application/x-shellscript") ||
        type.inherits("application/javascript") || type.inherits("application/xml") ||
        type.inherits("text/x-python") || name == "application/json") {
        return QStringLiteral("code");
    }
    if (type.inherits("application/zip")) {
        return QStringLiteral("archive");
    }
    if (type.inherits("text/plain")) {
        return QStringLiteral("text");
    }
    if (type.inherits("application/x-executable")) {
        return QStringLiteral("application");
    }
    return {};
}

}  // namespace

QStringList UIDocumentInteractionController::icons() const {
    std::error_code unknown;
    const auto path = localPath(url_);
    if (path && std::filesystem::is_directory(*path, unknown)) {
        return {QStringLiteral("folder")};
    }
    return fileIcons(lastPathComponent(url_));
}

QStringList UIDocumentInteractionController::fileIcons(const QString& name) {
    QStringList icons{QStringLiteral("file")};
    static const QMimeDatabase types;
    const QString best = iconOf(types.mimeTypeForFile(name, QMimeDatabase::MatchExtension));
    if (!best.isEmpty()) {
        icons.append(best);
    }
    return icons;
}

}  // namespace pellumar
