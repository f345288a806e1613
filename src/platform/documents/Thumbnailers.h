#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <vector>

namespace pellumar {

// The programs of the desktop that make small pictures of files we cannot read ourselves: of
// videos, and of photos in rarer formats. They tell of themselves in ".thumbnailer" files in the
// "thumbnailers" folders of the data folders. Immutable: for any thread.
class Thumbnailers {
  public:
    // Reads what these folders hold; the first folder that knows a type wins.
    explicit Thumbnailers(const std::vector<std::filesystem::path>& folders);

    // "thumbnailers" in $XDG_DATA_HOME and in each of $XDG_DATA_DIRS.
    [[nodiscard]] static std::vector<std::filesystem::path> standardFolders();

    // A picture of at most `side` pixels a side, made by the program for files of this MIME type.
    // Null if there is none, or if it fails or takes longer than some seconds. Blocks.
    [[nodiscard]] QImage picture(const std::filesystem::path& file,
                                 const QString& mimeType,
                                 int side) const;

  private:
    void read(const std::filesystem::path& entry);

    // The command's words by MIME type.
    QHash<QString, QStringList> commands_;
};

}  // namespace pellumar
