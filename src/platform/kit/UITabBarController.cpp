#include "platform/kit/UITabBarController.h"

#include <utility>

#include "platform/TextList.h"
#include "platform/kit/UINavigationController.h"

namespace pellumar {

void UITabBarController::setTabs(std::vector<Tab> tabs) {
    tabs_ = std::move(tabs);
    for (const Tab& tab : tabs_) {
        tab.controller->setParent(shared_from_this());
        if (const auto stack = std::dynamic_pointer_cast<UINavigationController>(tab.controller)) {
            connect(stack.get(),
                    &UINavigationController::stackChanged,
                    this,
                    &UITabBarController::barChanged);
        }
    }
}

std::shared_ptr<UIViewController> UITabBarController::selectedViewController() const {
    return tabs_[static_cast<std::size_t>(selected_)].controller;
}

void UITabBarController::viewDidLoad() {
    UIViewController::viewDidLoad();
    contentHost_ = outlet<QQuickItem>(view(), QStringLiteral("contentHost"));
    showSelected();
}

void UITabBarController::showSelected() {
    selectedViewController()->view().setParentItem(contentHost_);
    selectedViewController()->view().setVisible(true);
    selectedViewController()->view().setFocus(true);
}

QList<UIViewController*> UITabBarController::visibleChildren() const {
    return {selectedViewController().get()};
}

void UITabBarController::select(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= tabs_.size()) {
        return;
    }
    const std::shared_ptr<UIViewController> leaving = selectedViewController();
    if (index == selected_) {
        leaving->goBack();
        return;
    }
    selected_ = index;
    const std::shared_ptr<UIViewController> coming = selectedViewController();
    if (isViewLoaded()) {
        leaving->beginAppearance(false, false);
        coming->beginAppearance(true, false);
        leaving->view().setVisible(false);
        leaving->view().setParentItem(nullptr);
        showSelected();
        leaving->endAppearance(false);
        coming->endAppearance(false);
    }
    emit selectionChanged();
    emit barChanged();
}

void UITabBarController::setStandardAppearance(BarAppearance appearance) {
    standard_ = std::move(appearance);
    emit barChanged();
}

bool UITabBarController::goBack() {
    return UIViewController::goBack() || selectedViewController()->goBack();
}

QStringList UITabBarController::titles() const {
    return textList(tabs_, [](const Tab& tab) { return tab.item.title; });
}

QStringList UITabBarController::images() const {
    return textList(tabs_, [](const Tab& tab) { return tab.item.image; });
}

bool UITabBarController::isBarHidden() const {
    const auto stack = std::dynamic_pointer_cast<UINavigationController>(selectedViewController());
    return stack && stack->canPop() && stack->topViewController()->hidesBottomBarWhenPushed();
}

}  // namespace pellumar
