#pragma once

#include <QDir>
#include <QList>
#include <QTemporaryDir>
#include <QUrl>

namespace pellumar::gallery {

// A home folder with what people have in theirs, for this process alone and gone with it: nothing
// of the user's is seen in a picture, and nothing of a running application is touched.
class SampleHome {
  public:
    // Makes the folder, and turns the environment to it. Before anything reads that.
    SampleHome();

    // False if there is no room for it.
    [[nodiscard]] bool isValid() const { return folder_.isValid(); }

    // A file of it, by its path from there, such as "Downloads/Invoice 2026-104.pdf".
    [[nodiscard]] QUrl file(const QString& name) const;
    // An archive of a holiday: photos, letters, sheets.
    [[nodiscard]] QUrl archive() const;

  private:
    void write(const QString& name, qint64 bytes, int hoursAgo) const;
    void addSoftwareCentre() const;
    void fillFolders() const;
    void paintPhotos() const;
    void pack() const;

    const QTemporaryDir folder_;
    // Called as its owner might be.
    const QDir home_;
};

}  // namespace pellumar::gallery
