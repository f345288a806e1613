#pragma once

#include "platform/kit/UINavigationController.h"

namespace pellumar {

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
