#pragma once

#include <QImage>
#include <QString>
#include <filesystem>

#include "platform/documents/Thumbnailers.h"

namespace pellumar {

// Small pictures of photos and videos, shared with the other applications of the user in the cache
// that the Thumbnail Managing Standard of freedesktop.org describes. For threads that may block;
// any number of them at a time.
class ThumbnailStore {
  public:
    // `folder` is that of the cache, and need not exist. `helpers` make the pictures of what we
    // cannot read ourselves.
    ThumbnailStore(std::filesystem::path folder, Thumbnailers helpers);

    // $XDG_CACHE_HOME/thumbnails, or that in ~/.cache.
    [[nodiscard]] static std::filesystem::path standardFolder();

    // The picture of a file, upright, of at most `side` pixels a side: from the cache if that holds
    // it as the file is now, else made, and kept in the cache where that can be written. Null if
    // there is none, or a photo is too large a file to be worth it.
    [[nodiscard]] QImage thumbnail(const std::filesystem::path& file, int side) const;

  private:
    // What a thumbnail must say of its original to be valid.
    struct Original {
        QString uri;
        QString changed;
    };

    [[nodiscard]] QImage make(const std::filesystem::path& file, qint64 length, int side) const;
    [[nodiscard]] static QImage decode(const std::filesystem::path& file, int side);
    [[nodiscard]] static QImage read(const std::filesystem::path& place, const Original& original);
    static void save(const std::filesystem::path& place, QImage image, const Original& original);

    const std::filesystem::path folder_;
    const Thumbnailers helpers_;
};

}  // namespace pellumar
