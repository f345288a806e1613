#pragma once

#include <QQmlEngine>

#include "platform/desktop/Appearance.h"
#include "platform/documents/ThumbnailProvider.h"
#include "platform/kit/FrameAnimator.h"
#include "platform/kit/UIWindow.h"
#include "platform/kit/ViewLoader.h"

namespace pellumar {

// The window and what draws in it: layouts, icons and thumbnails, the look that the user wants.
class WindowParts {
  public:
    // `thumbnails` must outlive this. The window is not shown yet.
    explicit WindowParts(const ThumbnailStore& thumbnails);

    [[nodiscard]] UIWindow& window() { return window_; }
    [[nodiscard]] QQmlEngine& engine() { return engine_; }

    // Waits until no thumbnail is being made; false if it does not come to that in time.
    [[nodiscard]] bool waitForThumbnails(std::chrono::milliseconds timeout) {
        return thumbnails_.waitForDone(timeout);
    }

  private:
    void followAppearance();

    Appearance appearance_;
    QQmlEngine engine_;
    // The engine's.
    ThumbnailProvider& thumbnails_;
    ViewLoader viewLoader_;
    FrameAnimator animator_;
    UIWindow window_;
};

}  // namespace pellumar
