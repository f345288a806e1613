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
    (new Notice(context, window, text, std::move(action), stay))->appear();
}

Notice* Notice::shownIn(const UIWindow& window) {
    for (Notice* each : window.findChildren<Notice*>(Qt::FindDirectChildrenOnly)) {
        if (!each->isClosing_) {
            return each;
        }
    }
    return nullptr;
}

Notice::Notice(const UIContext& context, UIWindow& window, QString text, Action action, Stay stay)
    : QObject(&window),
      context_(context),
      window_(window),
      text_(std::move(text)),
      action_(std::move(action)),
      stay_(stay) {
    time_.setSingleShot(true);
    time_.setInterval(action_.handler ? kTimeToAct : kTimeToRead);
    connect(&time_, &QTimer::timeout, this, &Notice::close);
}

void Notice::appear() {
    item_ = context_.viewLoader.load(*this);
    item_->setParentItem(window_.contentItem());
    setHeld(false);
    fade(1, [] {});
    tellScreenReaders(window_, QAccessible::ObjectReorder);
    tellScreenReaders(*item_, QAccessible::Alert);
}

void Notice::setHeld(bool isHeld) {
    if (isHeld || isClosing_ || stay_ == Stay::kUntilClosed) {
        time_.stop();
    } else {
        time_.start();
    }
}

void Notice::close() {
    if (std::exchange(isClosing_, true)) {
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
    tellScreenReaders(window_, QAccessible::ObjectReorder);
    fade(0, [self = QPointer<Notice>(this)] {
        if (Notice* const gone = self.data()) {
            gone->item_->setVisible(false);
            gone->deleteLater();
        }
    });
}

void Notice::act() {
    if (!isClosing_ && action_.handler) {
        close();
        action_.handler();
    }
}

void Notice::fade(qreal to, const Animator::Finished& finished) {
    const bool closes = isClosing_;
    const qreal from = presence_;
    context_.animator.animate(
        kFadeTime,
        QEasingCurve::OutCubic,
        [self = QPointer<Notice>(this), from, to, closes](qreal progress) {
            Notice* const notice = self.data();
            if (notice != nullptr && notice->isClosing_ == closes) {
                notice->presence_ = from + (to - from) * progress;
                emit notice->presenceChanged();
            }
        },
        finished);
}

}  // namespace pellumar
