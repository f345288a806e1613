#include "platform/kit/Notice.h"

#include <QAccessible>
#include <utility>

#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kFadeTime{180};
constexpr std::chrono::seconds kTimeToRead{4};
// A thumb needs time to get to the button.
constexpr std::chrono::seconds kTimeToAct{10};

void tellScreenReaders(QObject& object, QAccessible::Event what) {
    QAccessibleEvent event(&object, what);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

void Notice::show(const UIContext& context,
                  UIWindow& window,
                  const QString& text,
                  Action action,
                  Stay stay) {
    if (Notice* const earlier = shownIn(window)) {
        earlier->close();
    }
    (new Notice(context, window, text, std::move(action), stay))->appear(context.viewLoader);
}

Notice* Notice::shownIn(const UIWindow& window) {
    for (Notice* each : window.findChildren<Notice*>(Qt::FindDirectChildrenOnly)) {
        if (each->transition_.canLeave()) {
            return each;
        }
    }
    return nullptr;
}

Notice::Notice(const UIContext& context, UIWindow& window, QString text, Action action, Stay stay)
    : QObject(&window),
      window_(window),
      text_(std::move(text)),
      action_(std::move(action)),
      stay_(stay),
      transition_(context.animator, [this] { emit presenceChanged(); }) {
    time_.setSingleShot(true);
    time_.setInterval(action_.handler ? kTimeToAct : kTimeToRead);
    connect(&time_, &QTimer::timeout, this, &Notice::close);
}

void Notice::appear(ViewLoader& loader) {
    item_ = loader.load(*this);
    item_->setParentItem(window_.contentItem());
    over_ = window_.topLayer();
    connect(&window_, &UIWindow::screensChanged, this, &Notice::makeWay);
    transition_.come(kFadeTime);
    setHeld(false);
    tellScreenReaders(window_, QAccessible::ObjectReorder);
    tellScreenReaders(*item_, QAccessible::Alert);
}

void Notice::setHeld(bool isHeld) {
    if (isHeld || isInTheWay() || !transition_.canLeave() || stay_ == Stay::kUntilClosed) {
        time_.stop();
    } else {
        time_.start();
    }
}

bool Notice::isInTheWay() const {
    const QQuickItem* const top = window_.topLayer();
    const auto root = window_.rootViewController();
    return top != over_ && !(root && top == &root->view());
}

void Notice::makeWay() {
    if (item_->isVisible() == isInTheWay() && transition_.canLeave()) {
        item_->setVisible(!isInTheWay());
        setHeld(false);
        tellScreenReaders(window_, QAccessible::ObjectReorder);
    }
}

void Notice::close() {
    if (!transition_.canLeave()) {
        return;
    }
    time_.stop();
    const QQuickItem* const focused = window_.activeFocusItem();
    const bool hadKeyboard =
        focused != nullptr && (focused == item_.get() || item_->isAncestorOf(focused));
    item_->setEnabled(false);
    if (hadKeyboard && window_.topLayer() != nullptr) {
        window_.topLayer()->forceActiveFocus(Qt::OtherFocusReason);
    }
    transition_.leave(kFadeTime, [this] {
        item_->setVisible(false);
        deleteLater();
    });
    tellScreenReaders(window_, QAccessible::ObjectReorder);
}

void Notice::act() {
    if (transition_.canLeave() && action_.handler) {
        close();
        action_.handler();
    }
}

}  // namespace pellumar
