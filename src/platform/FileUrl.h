#pragma once

#include <QString>
#include <QUrl>
#include <filesystem>
#include <optional>

// Paths of this system are bytes, URLs are text: both ways keep every byte. (QUrl::toLocalFile does
// not, where a name is not UTF-8.)
namespace pellumar {

// The URL of an absolute path. Equal to QUrl::fromLocalFile where the path is UTF-8.
[[nodiscard]] QUrl fileUrl(const std::filesystem::path& path);

// The path that a URL tells: nothing if it is not a file URL of this machine, or holds a NUL.
[[nodiscard]] std::optional<std::filesystem::path> localPath(const QUrl& url);

// `path` without the slashes at its end that a folder may be named with, so that its filename() is
// the last component. The root folder stays as it is.
[[nodiscard]] std::filesystem::path withoutTrailingSlash(const std::filesystem::path& path);

// The last component of the URL's path, to be shown or judged as text: "b.zip" of "/a/b.zip" and of
// "/a/b.zip/". "/" for the root folder, empty where there is no path.
[[nodiscard]] QString lastPathComponent(const QUrl& url);

}  // namespace pellumar
