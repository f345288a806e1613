#include "platform/kit/UIViewController.h"

#include <utility>

#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kPresentationTime{220};
constexpr std::chrono::milliseconds kDismissalTime{180};

}  // namespace

UIViewController::UIViewController(const UIContext& context) : context_(context) {}

UIViewController::~UIViewController() = default;

QQuickItem& UIViewController::view() {
    if (!view_) {
        view_ = context_.viewLoader.load(*this);
        awakeFromNib();
        viewDidLoad();
    }
    return *view_;
}

void UIViewController::awakeFromNib() {
    // A screen that is pushed over this one shows the arrow and no text.
    navigationItem_.setBackTitle(QString());
}

void UIViewController::setTitle(const QString& title) {
    navigationItem_.setTitle(title);
}

std::shared_ptr<UINavigationController> UIViewController::navigationController() const {
    const std::shared_ptr<UIViewController> above = parent();
    if (!above) {
        return nullptr;
    }
    auto found = std::dynamic_pointer_cast<UINavigationController>(above);
    return found ? found : above->navigationController();
}

std::shared_ptr<UITabBarController> UIViewController::tabBarController() const {
    const std::shared_ptr<UIViewController> above = parent();
    if (!above) {
        return nullptr;
    }
    auto found = std::dynamic_pointer_cast<UITabBarController>(above);
    return found ? found : above->tabBarController();
}

void UIViewController::setWindow(UIWindow* window) {
    window_ = window;
}

UIWindow* UIViewController::window() const {
    if (window_) {
        return window_;
    }
    if (const auto above = parent()) {
        return above->window();
    }
    return nullptr;
}

bool UIViewController::isPopover() const {
    return presentationStyle_ == UIModalPresentationStyle::kPopover && window_ != nullptr &&
           window_->userInterfaceIdiom() == UIUserInterfaceIdiom::kPad;
}

void UIViewController::setPresentation(qreal presentation) {
    presentation_ = presentation;
    emit presentationChanged();
}

void UIViewController::present(const std::shared_ptr<UIViewController>& presented,
                               bool animated,
                               const Completion& completion) {
    UIWindow* const where = window();
    if (where == nullptr) {
        qFatal("%s presents a screen, but is in no window.", metaObject()->className());
    }
    // The whole window is covered, so the topmost of its screens presents, whichever asked for it.
    const std::shared_ptr<UIViewController> top = where->topViewController();
    if (top && top->isDismissing_) {
        top->afterDismissal_.push_back([self = weak_from_this(), presented, animated, completion] {
            const auto presenter = self.lock();
            if (presenter && presenter->window() != nullptr) {
                presenter->present(presented, animated, completion);
            }
        });
        return;
    }
    if (top && top.get() != this) {
        top->present(presented, animated, completion);
        return;
    }
    presented_ = presented;
    presented->presenting_ = weak_from_this();
    presented->focusBefore_ = where->activeFocusItem();
    presented->setWindow(where);
    presented->setPresentation(0);
    presented->beginAppearance(true, animated);
    where->addLayer(presented->view());
    const std::weak_ptr<UIViewController> weak = presented;
    const auto finished = [weak, animated, completion] {
        const auto shown = weak.lock();
        if (!shown || shown->isDismissing_) {
            return;
        }
        shown->endAppearance(animated);
        if (completion) {
            completion();
        }
    };
    if (!animated) {
        presented->setPresentation(1);
        finished();
        return;
    }
    context_.animator.animate(
        kPresentationTime,
        QEasingCurve::OutCubic,
        [weak](qreal progress) {
            const auto shown = weak.lock();
            if (shown && !shown->isDismissing_) {
                shown->setPresentation(progress);
            }
        },
        finished);
}

void UIViewController::dismiss(bool animated, const Completion& completion) {
    const std::shared_ptr<UIViewController> gone = presented_;
    if (!gone) {
        if (const auto from = presenting_.lock()) {
            from->dismiss(animated, completion);
        } else if (completion) {
            completion();
        }
        return;
    }
    if (gone->isDismissing_) {
        if (completion) {
            gone->afterDismissal_.push_back(completion);
        }
        return;
    }
    // Already now: what waits for the inner one to go must not be presented on one that goes too.
    gone->isDismissing_ = true;
    if (gone->presented_) {
        gone->dismiss(false);
    }
    gone->beginAppearance(false, animated);
    if (!animated) {
        finishDismissal(gone, completion);
        return;
    }
    const std::weak_ptr<UIViewController> self = weak_from_this();
    const std::weak_ptr<UIViewController> weak = gone;
    const qreal from = gone->presentation_;
    context_.animator.animate(
        kDismissalTime,
        QEasingCurve::InCubic,
        [weak, from](qreal progress) {
            if (const auto shown = weak.lock()) {
                shown->setPresentation(from * (1 - progress));
            }
        },
        [self, weak, completion] {
            const auto presenter = self.lock();
            const auto shown = weak.lock();
            if (presenter && shown) {
                presenter->finishDismissal(shown, completion);
            }
        });
}

void UIViewController::finishDismissal(const std::shared_ptr<UIViewController>& gone,
                                       const Completion& completion) {
    gone->setPresentation(0);
    if (UIWindow* const where = gone->window()) {
        where->removeLayer(gone->view());
    }
    gone->endAppearance(true);
    gone->setWindow(nullptr);
    gone->isDismissing_ = false;
    if (presented_ == gone) {
        presented_.reset();
    }
    if (gone->focusBefore_) {
        gone->focusBefore_->forceActiveFocus(Qt::OtherFocusReason);
    }
    const std::vector<Completion> waiting = std::exchange(gone->afterDismissal_, {});
    if (completion) {
        completion();
    }
    for (const Completion& next : waiting) {
        next();
    }
}

bool UIViewController::goBack() {
    if (!presenting_.expired()) {
        dismiss(true);
        return true;
    }
    return false;
}

void UIViewController::beginAppearance(bool appearing, bool animated) {
    const Appearance next = appearing ? Appearance::kAppearing : Appearance::kDisappearing;
    const Appearance reached = appearing ? Appearance::kAppeared : Appearance::kDisappeared;
    if (appearance_ == next || appearance_ == reached) {
        return;
    }
    appearance_ = next;
    static_cast<void>(view());
    if (appearing) {
        viewWillAppear(animated);
    } else {
        viewWillDisappear(animated);
    }
    for (UIViewController* child : visibleChildren()) {
        child->beginAppearance(appearing, animated);
    }
}

void UIViewController::endAppearance(bool animated) {
    if (appearance_ == Appearance::kAppearing) {
        appearance_ = Appearance::kAppeared;
        viewDidAppear(animated);
    } else if (appearance_ == Appearance::kDisappearing) {
        appearance_ = Appearance::kDisappeared;
        viewDidDisappear(animated);
    } else {
        return;
    }
    for (UIViewController* child : visibleChildren()) {
        child->endAppearance(animated);
    }
}

}  // namespace pellumar
