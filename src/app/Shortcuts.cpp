#include "app/Shortcuts.h"

#include <QShortcut>
#include <functional>

#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "screens/ViewController.h"

namespace pellumar {
namespace {

// The home screen while the user can tap it.
std::shared_ptr<ViewController> homeInUse(const UIWindow& window) {
    const auto tabs = std::dynamic_pointer_cast<UITabBarController>(window.topViewController());
    const auto stack =
        tabs ? std::dynamic_pointer_cast<UINavigationController>(tabs->selectedViewController())
             : nullptr;
    auto home =
        stack ? std::dynamic_pointer_cast<ViewController>(stack->topViewController()) : nullptr;
    const bool isInUse = home && home->appearance() == UIViewController::Appearance::kAppeared &&
                         (!home->hud() || home->hud()->isHidden());
    return isInUse ? home : nullptr;
}

void add(UIWindow& window, QKeySequence::StandardKey key, const std::function<void()>& act) {
    auto* const shortcut = new QShortcut(key, &window);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &window, act);
}

}  // namespace

void addShortcuts(UIWindow& window) {
    add(window, QKeySequence::Quit, [&window] { window.close(); });
    add(window, QKeySequence::Open, [&window] {
        if (const auto home = homeInUse(window)) {
            home->unzipTapped();
        }
    });
}

}  // namespace pellumar
