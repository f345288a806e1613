#include "platform/kit/UIViewController.h"

#include <algorithm>
#include <utility>

#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kPresentationTime{220};
constexpr std::chrono::milliseconds kDismissalTime{180};

}  // namespace

UIViewController::UIViewController(const UIContext& context)
    : context_(context), transition_(context.animator, [this] { emit presentationChanged(); }) {}

UIViewController::~UIViewController() = default;

QQuickItem& UIViewController::view() {
    if (!view_) {
        view_ = context_.viewLoader.load(*this);
        viewDidLoad();
    }
    return *view_;
}

void UIViewController::setTitle(const QString& title) {
    navigationItem_.setTitle(title);
}

template <typename Container>
std::shared_ptr<Container> UIViewController::container() const {
    std::shared_ptr<UIViewController> above = parent();
    while (above && !std::dynamic_pointer_cast<Container>(above)) {
        above = above->parent();
    }
    return std::dynamic_pointer_cast<Container>(above);
}

std::shared_ptr<UINavigationController> UIViewController::navigationController() const {
    return container<UINavigationController>();
}

std::shared_ptr<UITabBarController> UIViewController::tabBarController() const {
    return container<UITabBarController>();
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

bool UIViewController::isMoving() const {
    const QList<UIViewController*> children = visibleChildren();
    return transition_.isMoving() ||
           std::any_of(children.begin(), children.end(), [](const UIViewController* child) {
               return child->isMoving();
           });
}

void UIViewController::present(const std::shared_ptr<UIViewController>& presented, bool animated) {
    UIWindow* const where = window();
    if (where == nullptr) {
        qFatal("%s presents a screen, but is in no window.", metaObject()->className());
    }
    // The whole window is covered, so the topmost of its screens presents, whichever asked for it.
    const std::shared_ptr<UIViewController> top = where->topViewController();
    if (top && top->transition_.isLeaving()) {
        top->transition_.whenSettled([self = weak_from_this(), presented, animated] {
            const auto presenter = self.lock();
            if (presenter && presenter->window() != nullptr) {
                presenter->present(presented, animated);
            }
        });
        return;
    }
    if (top && top.get() != this) {
        top->present(presented, animated);
        return;
    }
    if (presented->transition_.state() != Transition::State::kGone) {
        return;
    }
    presented_ = presented;
    presented->presenting_ = weak_from_this();
    presented->setWindow(where);
    presented->beginAppearance(true, animated);
    where->addLayer(presented->view());
    presented->transition_.come(animated ? kPresentationTime : Transition::kAtOnce,
                                [presented = presented.get(), animated] {
                                    presented->endAppearance(animated);
                                    if (presented->window_) {
                                        presented->window_->layersChanged();
                                    }
                                });
}

bool UIViewController::dismissSelf(bool animated, const Completion& completion) {
    if (presenting_.expired() || !transition_.canLeave()) {
        return false;
    }
    // The completion may still want this.
    const std::shared_ptr<UIViewController> self = shared_from_this();
    beginAppearance(false, animated);
    transition_.leave(animated ? kDismissalTime : Transition::kAtOnce,
                      [this, weak = weak_from_this(), animated, completion] {
                          const auto held = weak.lock();
                          leavePresentation();
                          endAppearance(animated);
                          if (completion) {
                              completion();
                          }
                      });
    if (window_) {
        window_->layersChanged();
    }
    return true;
}

void UIViewController::leavePresentation() {
    const auto below = presenting_.lock();
    if (presented_) {
        presented_->presenting_ = presenting_;
    }
    if (below) {
        below->presented_ = std::exchange(presented_, nullptr);
    }
    presenting_.reset();
    UIWindow* const where = std::exchange(window_, nullptr);
    if (where != nullptr) {
        where->removeLayer(view());
    }
}

bool UIViewController::goBack() {
    // A second Escape finds a screen that leaves, and goes no further.
    return dismissSelf(true) || transition_.isLeaving();
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
    } else {
        return;
    }
    for (UIViewController* child : visibleChildren()) {
        child->endAppearance(animated);
    }
}

}  // namespace pellumar
