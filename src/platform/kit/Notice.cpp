#include "platform/kit/Notice.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>
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

void Notice::show(UIWindow& window, const QString& text, Action action, Stay stay) {
    Notice* const earlier = shownIn(window);
    (new Notice(window, text, std::move(action), stay))->appear();
    if (earlier != nullptr && earlier->stay_ == Stay::kForAMoment) {
        earlier->close();
    } else if (earlier != nullptr) {
        earlier->waitOrComeBack();
    }
}

void Notice::copy(UIWindow* window, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    if (window != nullptr) {
        show(*window, tr("Copied"));
    }
}

Notice* Notice::shownIn(const UIWindow& window) {
    // The last to come: earlier ones wait for it.
    Notice* shown = nullptr;
    for (Notice* each : window.findChildren<Notice*>(Qt::FindDirectChildrenOnly)) {
        if (each->transition_.canLeave()) {
            shown = each;
        }
    }
    return shown;
}

Notice::Notice(UIWindow& window, QString text, Action action, Stay stay)
    : QObject(&window),
      window_(window),
      text_(std::move(text)),
      action_(std::move(action)),
      stay_(stay),
      transition_(window.context().animator, [this] { emit presenceChanged(); }) {
    time_.setSingleShot(true);
    time_.setInterval(action_.handler ? kTimeToAct : kTimeToRead);
    connect(&time_, &QTimer::timeout, this, &Notice::close);
}

void Notice::appear() {
    item_ = window_.context().viewLoader.load(*this);
    item_->setParentItem(window_.contentItem());
    over_ = window_.topLayer();
    connect(&window_, &UIWindow::screensChanged, this, &Notice::waitOrComeBack);
    transition_.come(kFadeTime);
    setHeld(false);
    tellScreenReaders(window_, QAccessible::ObjectReorder);
    tellScreenReaders(*item_, QAccessible::Alert);
}

void Notice::setHeld(bool isHeld) {
    if (isHeld || mustWait() || !transition_.canLeave() || stay_ == Stay::kUntilClosed) {
        time_.stop();
    } else {
        time_.start();
    }
}

bool Notice::mustWait() const {
    const QList<Notice*> all = window_.findChildren<Notice*>(Qt::FindDirectChildrenOnly);
    const bool isLast = std::none_of(
        all.rbegin(), std::find(all.rbegin(), all.rend(), this), [](const Notice* each) {
            return each->transition_.state() != Transition::State::kGone;
        });
    const QQuickItem* const top = window_.topLayer();
    const auto root = window_.rootViewController();
    return !isLast || (top != over_ && !(root && top == &root->view()));
}

void Notice::waitOrComeBack() {
    if (item_->isVisible() == mustWait() && transition_.canLeave()) {
        releaseKeyboard();
        item_->setVisible(!mustWait());
        setHeld(false);
        tellScreenReaders(window_, QAccessible::ObjectReorder);
    }
}

void Notice::releaseKeyboard() const {
    const QQuickItem* const focused = window_.activeFocusItem();
    const bool hasKeyboard =
        focused != nullptr && (focused == item_.get() || item_->isAncestorOf(focused));
    if (hasKeyboard && window_.topLayer() != nullptr) {
        window_.topLayer()->forceActiveFocus(Qt::OtherFocusReason);
    }
}

void Notice::close() {
    if (!transition_.canLeave()) {
        return;
    }
    time_.stop();
    releaseKeyboard();
    item_->setEnabled(false);
    transition_.leave(kFadeTime, [this] {
        item_->setVisible(false);
        deleteLater();
        if (Notice* const earlier = shownIn(window_)) {
            earlier->waitOrComeBack();
        }
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
