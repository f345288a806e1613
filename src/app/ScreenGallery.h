#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "app/Composition.h"
#include "app/SamplePhotos.h"

namespace pellumar {

// Shows every screen of the application, one after the other: to check that all layouts load, and
// to take pictures of them.
class ScreenGallery {
  public:
    explicit ScreenGallery(Composition& composition)
        : composition_(composition), samplePhotos_(composition.screens().photos) {}

    // Loads every screen; false if the layouts said anything against it, which is written to
    // standard error.
    [[nodiscard]] bool selfTest();

    // Writes NAME-WIDTHxHEIGHT-light.png and -dark.png of every screen into `folder`; false if one
    // could not be written.
    [[nodiscard]] bool saveScreenshots(const QString& folder);

  private:
    struct Scene {
        QString name;
        // Puts the scene into the window.
        std::function<void()> show;
    };

    [[nodiscard]] std::vector<Scene> scenes();
    [[nodiscard]] std::vector<Scene> shellScenes();
    [[nodiscard]] std::vector<Scene> archiveScenes();
    [[nodiscard]] std::vector<Scene> composerScenes();
    [[nodiscard]] std::shared_ptr<UINavigationController> showHome();
    void push(const std::shared_ptr<UIViewController>& screen);
    void present(const std::shared_ptr<UIViewController>& screen);
    // Lets animations and the background finish, up to a limit.
    static void settle();

    Composition& composition_;
    const SamplePhotos samplePhotos_;
};

}  // namespace pellumar
