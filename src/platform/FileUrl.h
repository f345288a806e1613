#pragma once

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

}  // namespace pellumar
