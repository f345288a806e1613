#pragma once

#include "platform/kit/UITabBarController.h"

namespace pellumar {

// The main interface: archive work and settings, side by side.
class MainTabBarController : public UITabBarController {
    Q_OBJECT

  public:
    using UITabBarController::UITabBarController;
};

}  // namespace pellumar
