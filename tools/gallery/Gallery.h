#pragma once

#include <QStringList>

#include "gallery/Scenes.h"

namespace pellumar::gallery {

// Shows every screen of the application, one after the other. What the layouts complain of
// meanwhile goes to standard error, and fails what was asked for.
class Gallery {
  public:
    // With names, it holds the scenes of these names only.
    Gallery(Stage& stage, const QStringList& names);

    // Loads every screen once.
    [[nodiscard]] bool selfTest();

    // Loads every screen in the size of a small phone, and says on standard error which texts of
    // it cannot be read; false if there are any. `names`, those of files, may be cut off; what was
    // is added to them.
    [[nodiscard]] bool canBeRead(QStringList& names);

    // Writes NAME-WIDTHxHEIGHT-light.png and -dark.png of every screen into `folder`; false also if
    // one could not be written.
    [[nodiscard]] bool savePictures(const QString& folder);

  private:
    [[nodiscard]] bool savePicturesAt(QSize size, const QString& folder);

    Stage& stage_;
    std::vector<Scene> scenes_;
};

}  // namespace pellumar::gallery
