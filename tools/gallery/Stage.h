#pragma once

#include <QStringList>
#include <functional>
#include <memory>

#include "app/Composition.h"
#include "gallery/SampleHome.h"
#include "screens/ViewController.h"

namespace pellumar::gallery {

// The application, started in a home folder of samples, and the ways to put a screen into its
// window. Nothing moves in it. What does not come to rest stops the process with a message.
class Stage {
  public:
    explicit Stage(const SampleHome& home);

    [[nodiscard]] const ScreenServices& services() const { return composition_.screens(); }
    [[nodiscard]] const SampleHome& home() const { return home_; }

    void resize(QSize size) { composition_.window().resize(size); }
    void setDark(bool isDark);
    [[nodiscard]] bool savePicture(const QString& file);

    // What cannot be read of what is on top of all, and of the notice over it: see illegible().
    [[nodiscard]] QStringList illegibleTexts(const QStringList& mayBeCut, QStringList& cut);

    void showOnboarding();
    // The home screen, as if it had just been started.
    std::shared_ptr<ViewController> showHome();
    void showSettings();
    // Pushes a screen over the home screen.
    void push(const std::shared_ptr<UIViewController>& screen);
    // Presents a screen over the home screen.
    void present(const std::shared_ptr<UIViewController>& screen);
    // The screen on top of all, or of what is in the tabs if that is the home screen's stack.
    template <typename Screen>
    [[nodiscard]] std::shared_ptr<Screen> top() {
        return std::dynamic_pointer_cast<Screen>(topScreen());
    }

    // Waits until the condition holds.
    void until(const char* what, const std::function<bool()>& condition);
    // Waits until no work is done in the background, no picture is being loaded, and the frames
    // that show the last of it have been drawn.
    void settle();

  private:
    [[nodiscard]] std::shared_ptr<UIViewController> topScreen();
    [[nodiscard]] bool isAtRest();
    // It belongs to the window, and would stay in the next picture.
    void closeNotice();
    void drawFrame();

    const SampleHome& home_;
    Composition composition_;
};

}  // namespace pellumar::gallery
