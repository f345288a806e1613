#include "platform/kit/UIWindow.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <utility>

namespace pellumar {
namespace {

// Nobody aims at what has been on the screen for less than that.
constexpr std::chrono::milliseconds kTimeToSee{220};

bool isBack(const QKeyEvent& press) {
    return press.key() == Qt::Key_Escape || press.key() == Qt::Key_Back ||
           press.matches(QKeySequence::Back);
}

// Whether it may use a control or leave a screen, wherever it arrives.
bool acts(const QKeyEvent& press) {
    switch (press.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
        case Qt::Key_Select:
            return true;
        default:
            return isBack(press);
    }
}

bool isWithinDoubleClick(quint64 earlier, quint64 later) {
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    return later - earlier < static_cast<quint64>(interval);
}

}  // namespace

UIWindow::UIWindow(const UIContext& context) : context_(context) {
    host_.setParentItem(contentItem());
    host_.setSize(contentItem()->size());
}

UIWindow::~UIWindow() {
    setRootViewController(nullptr);
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& root) {
    const std::shared_ptr<UIViewController> old = root_;
    if (old) {
        for (auto top = topViewController(); top != old; top = topViewController()) {
            if (!top->dismissSelf(false)) {
                top->transition().hurry();
            }
        }
        old->beginAppearance(false, false);
        old->transition().leave(Transition::kAtOnce);
        removeLayer(old->view());
        old->endAppearance(false);
        old->setWindow(nullptr);
    }
    root_ = root;
    if (root) {
        root->setWindow(this);
        showRoot();
    }
}

void UIWindow::makeKeyAndVisible() {
    if (isVisible()) {
        setWindowStates(windowStates() & ~Qt::WindowMinimized);
        raise();
    } else {
        show();
    }
    requestActivate();
    if (!std::exchange(isShown_, true) && root_) {
        showRoot();
    }
}

void UIWindow::showRoot() {
    if (!isShown_) {
        // It is loaded, and comes into view with the window.
        addLayer(root_->view());
        return;
    }
    root_->beginAppearance(true, false);
    addLayer(root_->view());
    root_->endAppearance(false);
    // It is there at once; but who taps just then meant what was there before.
    root_->transition().come(kTimeToSee, [this] { layersChanged(); });
}

std::shared_ptr<UIViewController> UIWindow::topViewController() const {
    std::shared_ptr<UIViewController> top = root_;
    while (top && top->presentedViewController()) {
        top = top->presentedViewController();
    }
    return top;
}

void UIWindow::addLayer(QQuickItem& view) {
    view.setParentItem(&host_);
    view.setPosition({0, 0});
    layersChanged();
}

void UIWindow::removeLayer(QQuickItem& view) {
    view.setParentItem(nullptr);
    layersChanged();
}

QQuickItem* UIWindow::topLayer() const {
    const std::shared_ptr<UIViewController> top = topViewController();
    return top && top->isViewLoaded() ? &top->view() : nullptr;
}

void UIWindow::layersChanged() {
    const std::shared_ptr<UIViewController> top = topViewController();
    for (auto each = root_; each; each = each->presentedViewController()) {
        each->view().setEnabled(each == top && !each->transition().isLeaving());
    }
    if (top && top->transition().isHere()) {
        top->view().forceActiveFocus(Qt::OtherFocusReason);
        showKeyboard();
    }
    lastPress_.isOutdated = true;
    lastKey_.isOutdated = true;
    QAccessibleEvent reordered(this, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
    emit screensChanged();
}

void UIWindow::showKeyboard() const {
    constexpr const char* kReason = "focusReason";
    QQuickItem* const item = activeFocusItem();
    const bool isKeyed = lastKey_.time > lastPress_.time;
    if (isKeyed && item != nullptr && item->property(kReason).isValid()) {
        item->setProperty(kReason, Qt::TabFocusReason);
    }
}

std::shared_ptr<void> UIWindow::occupy() {
    ++screensAtWork_;
    auto work = std::make_shared<QObject>();
    connect(work.get(), &QObject::destroyed, this, [this] {
        --screensAtWork_;
        emit screensChanged();
    });
    return work;
}

bool UIWindow::isIdle() const {
    return root_ && root_->appearance() == UIViewController::Appearance::kAppeared &&
           !root_->isMoving() && !isOccupied();
}

bool UIWindow::isOccupied() const {
    return screensAtWork_ > 0 || (root_ && root_->presentedViewController());
}

bool UIWindow::refusesPress(const QPointerEvent& press) {
    const std::shared_ptr<UIViewController> top = topViewController();
    const QPointF place = press.points().isEmpty() ? QPointF() : press.points().first().position();
    const int distance = QGuiApplication::styleHints()->mouseDoubleClickDistance();
    const bool isSecond = lastPress_.isOutdated &&
                          isWithinDoubleClick(lastPress_.time, press.timestamp()) &&
                          (place - lastPress_.place).manhattanLength() <= distance;
    const bool isRefused = isSecond || (top && top->isMoving());
    lastPress_ = {press.timestamp(), place, isSecond, isRefused};
    return isRefused;
}

bool UIWindow::refusesKey(const QKeyEvent& press) {
    const bool isSecond =
        lastKey_.isOutdated && press.key() == lastKey_.key && acts(press) &&
        (press.isAutoRepeat() || isWithinDoubleClick(lastKey_.time, press.timestamp()));
    lastKey_ = {press.timestamp(), press.key(), isSecond};
    return isSecond;
}

bool UIWindow::event(QEvent* event) {
    const QEvent::Type type = event->type();
    const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::TouchBegin;
    if ((isPress && refusesPress(static_cast<QPointerEvent&>(*event))) ||
        (type == QEvent::KeyPress && refusesKey(static_cast<QKeyEvent&>(*event))) ||
        (type == QEvent::MouseButtonDblClick && lastPress_.isRefused)) {
        event->accept();
        return true;
    }
    return QQuickWindow::event(event);
}

void UIWindow::keyPressEvent(QKeyEvent* event) {
    QQuickWindow::keyPressEvent(event);
    if (!event->isAccepted() && isBack(*event) && !event->isAutoRepeat()) {
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
