#include "app/MainNavigationController.h"

namespace pellumar {

void MainNavigationController::viewDidLoad() {
    UINavigationController::viewDidLoad();
    if (context().device.systemVersion < kBarAppearanceVersion) {
        return;
    }
    auto appearance = std::make_shared<UINavigationBarAppearance>();
    // Light grey, half transparent.
    appearance->shadowColor = QColor::fromRgbF(2.0F / 3, 2.0F / 3, 2.0F / 3, 0.5F);
    setStandardAppearance(appearance);
    setScrollEdgeAppearance(appearance);
}

}  // namespace pellumar
