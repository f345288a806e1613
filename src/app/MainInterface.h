#pragma once

#include <memory>

#include "platform/kit/UIStoryboard.h"

namespace pellumar {

// Builds the tabs with the home screen, which is selected, and the settings. Null if the storyboard
// lacks one of the two.
[[nodiscard]] std::shared_ptr<UIViewController> makeMainInterface(const UIContext& context,
                                                                  const UIStoryboard& storyboard);

}  // namespace pellumar
