#include "platform/kit/UIWindow.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>

namespace pellumar {

UIWindow::UIWindow() {
    host_.setParentItem(contentItem());
    host_.setSize(contentItem()->size());
}

UIWindow::~UIWindow() {
    setRootViewController(nullptr);
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& root) {
    const std::shared_ptr<UIViewController> old = root_;
    if (old) {
        if (old->presentedViewController()) {
            old->dismiss(false);
        }
        old->beginAppearance(false, false);
        removeLayer(old->view());
        old->endAppearance(false);
        old->setWindow(nullptr);
    }
    root_ = root;
    if (!root) {
        return;
    }
    root->setWindow(this);
    if (isShown_) {
        root->beginAppearance(true, false);
    }
    addLayer(root->view());
    if (isShown_) {
        root->endAppearance(false);
    }
}

void UIWindow::makeKeyAndVisible() {
    show();
    requestActivate();
    isShown_ = true;
    if (root_) {
        root_->beginAppearance(true, false);
        root_->endAppearance(false);
    }
}

std::shared_ptr<UIViewController> UIWindow::topViewController() const {
    std::shared_ptr<UIViewController> top = root_;
    while (top && top->presentedViewController()) {
        top = top->presentedViewController();
    }
    return top;
}

UIStatusBarStyle UIWindow::statusBarStyle() const {
    std::shared_ptr<UIViewController> decides = root_;
    for (auto each = root_; each; each = each->presentedViewController()) {
        if (each == root_ || each->modalPresentationCapturesStatusBarAppearance()) {
            decides = each;
        }
    }
    return decides ? decides->preferredStatusBarStyle() : UIStatusBarStyle::kDefault;
}

void UIWindow::addLayer(QQuickItem& view) {
    view.setParentItem(&host_);
    view.setPosition({0, 0});
    layers_.emplace_back(&view);
    layersChanged();
    view.forceActiveFocus(Qt::OtherFocusReason);
}

void UIWindow::removeLayer(QQuickItem& view) {
    std::erase_if(layers_,
                  [&view](const QPointer<QQuickItem>& layer) { return !layer || layer == &view; });
    view.setParentItem(nullptr);
    layersChanged();
}

QQuickItem* UIWindow::topLayer() const {
    return layers_.empty() ? nullptr : layers_.back().data();
}

void UIWindow::layersChanged() {
    for (const QPointer<QQuickItem>& layer : layers_) {
        if (layer) {
            layer->setEnabled(layer == topLayer());
        }
    }
    QAccessibleEvent reordered(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}

void UIWindow::keyPressEvent(QKeyEvent* event) {
    QQuickWindow::keyPressEvent(event);
    const bool isBack = event->key() == Qt::Key_Escape || event->key() == Qt::Key_Back ||
                        event->matches(QKeySequence::Back);
    if (!event->isAccepted() && isBack && !event->isAutoRepeat()) {
        const std::shared_ptr<UIViewController> top = topViewController();
        event->setAccepted(top && top->goBack());
    }
}

void UIWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::BackButton) {
        if (const std::shared_ptr<UIViewController> top = topViewController()) {
            top->goBack();
        }
        return;
    }
    QQuickWindow::mousePressEvent(event);
}

void UIWindow::resizeEvent(QResizeEvent* event) {
    QQuickWindow::resizeEvent(event);
    host_.setSize(contentItem()->size());
}

}  // namespace pellumar
