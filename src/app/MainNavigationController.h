#pragma once

#include "platform/kit/UINavigationController.h"

namespace pellumar {

// From this version of the platform on, bars can be styled.
inline constexpr double kBarAppearanceVersion = 15.0;

// A stack of the main interface.
class MainNavigationController : public UINavigationController {
    Q_OBJECT

  public:
    using UINavigationController::UINavigationController;

  protected:
    // Styles the bar, where the platform's version has styles.
    void viewDidLoad() override;
};

}  // namespace pellumar
