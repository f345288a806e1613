#include "platform/kit/UINavigationController.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kPushTime{220};
// How far the screen below moves, as a part of the width.
constexpr qreal kParallax = 0.25;

}  // namespace

UINavigationController::UINavigationController(const UIContext& context,
                                               std::shared_ptr<UIViewController> root)
    : UIViewController(context) {
    stack_.push_back(std::move(root));
}

void UINavigationController::viewDidLoad() {
    UIViewController::viewDidLoad();
    contentHost_ = outlet<QQuickItem>(view(), QStringLiteral("contentHost"));
    connect(contentHost_, &QQuickItem::widthChanged, this, [this] { arrange(); });
    for (const std::shared_ptr<UIViewController>& each : stack_) {
        putIntoPlace(*each);
        each->transition().come(Transition::kAtOnce);
    }
    stack_.back()->view().setFocus(true);
}

QList<UIViewController*> UINavigationController::visibleChildren() const {
    return {stack_.back().get()};
}

bool UINavigationController::isMoving() const {
    return leaving_ || UIViewController::isMoving();
}

void UINavigationController::putIntoPlace(UIViewController& screen) {
    screen.setParent(shared_from_this());
    screen.view().setParentItem(contentHost_);
    connect(&screen, &UIViewController::presentationChanged, this, [this] { arrange(); });
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController>& pushed,
                                                bool animated) {
    const std::shared_ptr<UIViewController> covered = stack_.back();
    pushed->setParent(shared_from_this());
    stack_.push_back(pushed);
    emit stackChanged();
    if (!isViewLoaded()) {
        return;
    }
    tellOfChange(*covered, *pushed, animated);
    putIntoPlace(*pushed);
    const bool moves = animated && appearance() == Appearance::kAppeared;
    pushed->transition().come(moves ? kPushTime : Transition::kAtOnce,
                              [self = weakly(this), covered, pushed = pushed.get(), animated] {
                                  if (const auto stack = self.lock()) {
                                      stack->endChange(*covered, *pushed, animated);
                                  }
                              });
}

void UINavigationController::popViewController(bool animated) {
    if (!canPop() || leaving_) {
        return;
    }
    const std::shared_ptr<UIViewController> popped = stack_.back();
    stack_.pop_back();
    emit stackChanged();
    if (!isViewLoaded()) {
        return;
    }
    leaving_ = popped;
    const std::shared_ptr<UIViewController> uncovered = stack_.back();
    tellOfChange(*popped, *uncovered, animated);
    const bool moves = animated && appearance() == Appearance::kAppeared;
    popped->transition().leave(moves ? kPushTime : Transition::kAtOnce,
                               [self = weakly(this), uncovered, animated] {
                                   if (const auto stack = self.lock()) {
                                       stack->finishPop(*uncovered, animated);
                                   }
                               });
}

void UINavigationController::finishPop(UIViewController& uncovered, bool animated) {
    const std::shared_ptr<UIViewController> gone = std::exchange(leaving_, nullptr);
    gone->view().setParentItem(nullptr);
    gone->disconnect(this);
    endChange(*gone, uncovered, animated);
}

void UINavigationController::tellOfChange(UIViewController& leaving,
                                          UIViewController& coming,
                                          bool animated) const {
    if (appearance() == Appearance::kAppeared) {
        leaving.beginAppearance(false, animated);
        coming.beginAppearance(true, animated);
    }
}

void UINavigationController::endChange(UIViewController& leaving,
                                       UIViewController& coming,
                                       bool animated) {
    arrange();
    // A click on the bar's arrow took the keyboard there, where it would stay, out of sight.
    contentHost_->setFocus(true);
    leaving.endAppearance(animated);
    coming.endAppearance(animated);
    if (UIWindow* const where = window()) {
        where->layersChanged();
    }
}

void UINavigationController::arrange() {
    // Screens come from the side at which lines end.
    const qreal width =
        QGuiApplication::isRightToLeft() ? -contentHost_->width() : contentHost_->width();
    // How far what stands above has come over a screen.
    qreal covered = 0;
    if (leaving_) {
        covered = leaving_->presentation();
        leaving_->view().setEnabled(false);
        leaving_->view().setX(width * (1 - covered));
    }
    for (auto each = stack_.rbegin(); each != stack_.rend(); ++each) {
        QQuickItem& view = (*each)->view();
        const bool isTop = *each == stack_.back();
        view.setX(width * (1 - (*each)->presentation() - kParallax * covered));
        view.setVisible(covered < 1);
        view.setEnabled(isTop);
        if (isTop && !isMoving()) {
            view.setFocus(true);
        }
        covered = std::max(covered, (*each)->presentation());
    }
}

void UINavigationController::rightTapped() {
    if (!isMoving()) {
        topItem()->rightTapped();
    }
}

void UINavigationController::setNavigationBarHidden(bool hidden, bool /*animated*/) {
    isBarHidden_ = hidden;
    emit barChanged();
}

void UINavigationController::setStandardAppearance(BarAppearance appearance) {
    standard_ = std::move(appearance);
    emit barChanged();
}

QVariant UINavigationController::shadowColor() const {
    return standard_ ? QVariant(standard_->shadowColor) : QVariant();
}

bool UINavigationController::goBack() {
    if (UIViewController::goBack()) {
        return true;
    }
    if (!canPop()) {
        return false;
    }
    backTapped();
    return true;
}

void UINavigationController::backTapped() {
    if (canPop() && !leaving_ && topViewController()->mayGoBack()) {
        popViewController(true);
    }
}

}  // namespace pellumar
