#pragma once

#include <QImage>
#include <QString>
#include <filesystem>
#include <utility>

namespace pellumar {

// Small pictures of image files, shared with the other applications of the user in the cache that
// the Thumbnail Managing Standard of freedesktop.org describes. For threads that may block; any
// number of them at a time.
class ThumbnailStore {
  public:
    // `folder` is that of the cache, and need not exist.
    explicit ThumbnailStore(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // $XDG_CACHE_HOME/thumbnails, or that in ~/.cache.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // The picture in a file, upright, of at most `side` pixels a side: from the cache if that holds
    // it as the file is now, else decoded, and kept in the cache where that can be written. Null if
    // the file is no picture or too large a one to be worth it.
    [[nodiscard]] QImage thumbnail(const std::filesystem::path& file, int side) const;

  private:
    // What a thumbnail must say of its original to be valid.
    struct Original {
        QString uri;
        QString changed;
    };

    [[nodiscard]] static QImage decode(const std::filesystem::path& file, int side);
    [[nodiscard]] static QImage read(const std::filesystem::path& place, const Original& original);
    static void save(const std::filesystem::path& place, QImage image, const Original& original);

    const std::filesystem::path folder_;
};

}  // namespace pellumar
