#pragma once

#include <filesystem>
#include <memory>

#include "app/Composition.h"
#include "app/FrameWatch.h"
#include "platform/kit/UINavigationController.h"

namespace pellumar::bench {

// Measures the composer with many photos and many files, which it makes in the home folder.
class ComposerBench {
  public:
    // All must outlive this. `stack` shows the home screen.
    ComposerBench(Composition& composition, FrameWatch& watch, UINavigationController& stack);

    // Scrolls through thousands of photos of which there are no thumbnails yet.
    void measurePhotos();
    // Picks a thousand files, and makes an archive of them.
    void measureFiles();

  private:
    template <typename Screen>
    std::shared_ptr<Screen> waitFor();

    Composition& composition_;
    FrameWatch& watch_;
    UINavigationController& stack_;
    const std::filesystem::path home_;
};

}  // namespace pellumar::bench
