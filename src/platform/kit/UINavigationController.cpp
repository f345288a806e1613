#include "platform/kit/UINavigationController.h"

#include <utility>

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
    for (const std::shared_ptr<UIViewController>& each : stack_) {
        each->setParent(shared_from_this());
    }
    stack_.back()->view().setParentItem(contentHost_);
    stack_.back()->view().setFocus(true);
}

QList<UIViewController*> UINavigationController::visibleChildren() const {
    return {stack_.back().get()};
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController>& pushed,
                                                bool animated) {
    const std::shared_ptr<UIViewController> leaving = stack_.back();
    pushed->setParent(shared_from_this());
    stack_.push_back(pushed);
    emit stackChanged();
    replaceTop(leaving, true, animated);
}

void UINavigationController::popViewController(bool animated) {
    if (!canPop() || isPopping_) {
        return;
    }
    const std::shared_ptr<UIViewController> leaving = stack_.back();
    stack_.pop_back();
    emit stackChanged();
    replaceTop(leaving, false, animated);
}

void UINavigationController::replaceTop(const std::shared_ptr<UIViewController>& leaving,
                                        bool isPush,
                                        bool animated) {
    if (!isViewLoaded()) {
        return;
    }
    const std::shared_ptr<UIViewController> coming = stack_.back();
    const bool isSeen = appearance() == Appearance::kAppeared;
    const bool moves = animated && isSeen;
    if (isSeen) {
        leaving->beginAppearance(false, animated);
        coming->beginAppearance(true, animated);
    }
    QQuickItem& in = coming->view();
    in.setParentItem(contentHost_);
    in.setVisible(true);
    in.setZ(isPush ? 1 : 0);
    leaving->view().setZ(isPush ? 0 : 1);
    isPopping_ = !isPush;
    const int move = ++moves_;
    // What comes can be used at once; what leaves takes no second tap.
    in.setEnabled(true);
    in.setFocus(true);
    leaving->view().setEnabled(false);

    const std::weak_ptr<UINavigationController> self = weakly(this);
    const auto step = [self, leaving, coming, isPush, move](qreal progress) {
        const auto stack = self.lock();
        if (stack && stack->moves_ == move) {
            const qreal width = stack->contentHost_->width();
            const qreal covered = isPush ? progress : 1 - progress;
            (isPush ? coming : leaving)->view().setX(width * (1 - covered));
            (isPush ? leaving : coming)->view().setX(-width * kParallax * covered);
        }
    };
    const auto finished = [self, leaving, coming, animated, move] {
        const auto stack = self.lock();
        if (!stack) {
            return;
        }
        if (stack->moves_ == move) {
            stack->isPopping_ = false;
            coming->view().setX(0);
        }
        if (stack->stack_.back() != leaving) {
            leaving->view().setVisible(false);
            leaving->view().setParentItem(nullptr);
        }
        leaving->endAppearance(animated);
        coming->endAppearance(animated);
    };
    if (moves) {
        step(0);
        context().animator.animate(kPushTime, QEasingCurve::OutCubic, step, finished);
    } else {
        finished();
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

void UINavigationController::setScrollEdgeAppearance(BarAppearance appearance) {
    scrollEdge_ = std::move(appearance);
    emit barChanged();
}

QString UINavigationController::backTitle() const {
    return canPop() ? stack_[stack_.size() - 2]->navigationItem()->backTitle() : QString();
}

QVariant UINavigationController::shadowColor() const {
    return standard_ ? QVariant(standard_->shadowColor) : QVariant();
}

bool UINavigationController::hasBlur() const {
    return standard_ && standard_->hasBlur;
}

bool UINavigationController::goBack() {
    if (UIViewController::goBack()) {
        return true;
    }
    if (!canPop()) {
        return false;
    }
    popViewController(true);
    return true;
}

}  // namespace pellumar
