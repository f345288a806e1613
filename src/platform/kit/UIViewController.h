#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <functional>
#include <memory>

#include "platform/kit/Transition.h"
#include "platform/kit/UIDevice.h"
#include "platform/kit/UINavigationItem.h"
#include "platform/kit/ViewLoader.h"

namespace pellumar {

class UINavigationController;
class UITabBarController;
class UIWindow;

enum class UIModalTransitionStyle { kCoverVertical, kCrossDissolve };

// What every screen stands on. All of it must outlive the screens.
struct UIContext {
    ViewLoader& viewLoader;
    Animator& animator;
    UIDevice device;
};

// Made by this only: a screen may be let go of in the middle of one of its own calls, so it goes
// with the next turn of the event loop. Weak pointers to it are empty at once.
template <typename Controller, typename... Arguments>
[[nodiscard]] std::shared_ptr<Controller> makeController(Arguments&&... arguments) {
    return std::shared_ptr<Controller>(new Controller(std::forward<Arguments>(arguments)...),
                                       DeleteLater());
}

// A screen, or a part of one: owns the view that its layout describes, and is told when that comes
// and goes. For the main thread; owned by shared pointers, see makeController. A class whose layout
// uses what stands here names this base with its namespace, or qmllint does not find it.
class UIViewController : public QObject, public std::enable_shared_from_this<UIViewController> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_DISABLE_COPY_MOVE(UIViewController)
    Q_PROPERTY(pellumar::UINavigationItem* navigationItem READ navigationItem CONSTANT)
    // How far the screen has come into view: from 0 to 1.
    Q_PROPERTY(qreal presentation READ presentation NOTIFY presentationChanged)
    // Whether it fades in and out in its place, instead of moving there.
    Q_PROPERTY(bool isDissolving READ isDissolving CONSTANT)

  public:
    using Completion = std::function<void()>;
    enum class Appearance { kDisappeared, kAppearing, kAppeared, kDisappearing };

    explicit UIViewController(const UIContext& context);
    ~UIViewController() override;

    [[nodiscard]] const UIContext& context() const { return context_; }

    // The view, loaded with the first call.
    [[nodiscard]] QQuickItem& view();
    [[nodiscard]] bool isViewLoaded() const { return view_ != nullptr; }

    void setTitle(const QString& title);
    [[nodiscard]] QString title() const { return navigationItem_.title(); }
    [[nodiscard]] UINavigationItem* navigationItem() { return &navigationItem_; }

    // The container that this sits in, directly or not; null if there is none.
    [[nodiscard]] std::shared_ptr<UINavigationController> navigationController() const;
    [[nodiscard]] std::shared_ptr<UITabBarController> tabBarController() const;
    [[nodiscard]] std::shared_ptr<UIViewController> parent() const { return parent_.lock(); }

    // Shows `presented` over the whole window, above whatever is presented already, and holds it
    // until it has been dismissed. This must be in a window. While the topmost screen leaves, it
    // waits for that; if this has left the window by then, it is let go.
    void present(const std::shared_ptr<UIViewController>& presented, bool animated);
    // Takes this presented screen away. What stands above it stays, on what was below it.
    // `completion` follows when it has gone. A screen that is not presented, or leaves already,
    // is not dismissed again: false, and `completion` is not called.
    bool dismissSelf(bool animated, const Completion& completion = {});
    [[nodiscard]] std::shared_ptr<UIViewController> presentedViewController() const {
        return presented_;
    }
    [[nodiscard]] std::shared_ptr<UIViewController> presentingViewController() const {
        return presenting_.lock();
    }

    void setModalTransitionStyle(UIModalTransitionStyle style) { transitionStyle_ = style; }

    void setHidesBottomBarWhenPushed(bool hides) { hidesBottomBar_ = hides; }
    [[nodiscard]] bool hidesBottomBarWhenPushed() const { return hidesBottomBar_; }

    // Goes one step back, as Escape and the back gesture ask for: false if there is none to go.
    virtual bool goBack();

    // Asked before a step back takes this from its stack: false keeps it there, say because it has
    // a question for the user first.
    [[nodiscard]] virtual bool mayGoBack() { return true; }

    // For containers and the window: tell this, and what it contains, that it comes or goes. A call
    // that changes nothing does nothing.
    void beginAppearance(bool appearing, bool animated);
    void endAppearance(bool animated);
    [[nodiscard]] Appearance appearance() const { return appearance_; }
    void setParent(const std::shared_ptr<UIViewController>& parent) { parent_ = parent; }
    void setWindow(UIWindow* window);
    [[nodiscard]] UIWindow* window() const;
    // Its way on and off the screen, as a presented or a pushed one or as the window's root.
    [[nodiscard]] Transition& transition() { return transition_; }
    // Whether it, or what it contains, comes or goes just now; nothing takes input meanwhile.
    [[nodiscard]] virtual bool isMoving() const;

    [[nodiscard]] qreal presentation() const { return transition_.presence(); }
    [[nodiscard]] bool isDissolving() const {
        return transitionStyle_ == UIModalTransitionStyle::kCrossDissolve;
    }

  signals:
    void presentationChanged();

  protected:
    // Called in this order; an override calls the base's first.
    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    // The contained controllers that come and go with this one.
    [[nodiscard]] virtual QList<UIViewController*> visibleChildren() const { return {}; }

    // This, as a pointer of its own class that does not hold it.
    template <typename Self>
    [[nodiscard]] static std::weak_ptr<Self> weakly(Self* self) {
        return std::static_pointer_cast<Self>(self->shared_from_this());
    }

  private:
    template <typename Container>
    [[nodiscard]] std::shared_ptr<Container> container() const;
    void leavePresentation();

    const UIContext context_;
    UINavigationItem navigationItem_;
    Transition transition_;
    OwnedItem view_;
    std::weak_ptr<UIViewController> parent_;
    QPointer<UIWindow> window_;
    std::shared_ptr<UIViewController> presented_;
    std::weak_ptr<UIViewController> presenting_;
    Appearance appearance_ = Appearance::kDisappeared;
    UIModalTransitionStyle transitionStyle_ = UIModalTransitionStyle::kCoverVertical;
    bool hidesBottomBar_ = false;
};

}  // namespace pellumar
