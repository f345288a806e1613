#pragma once

#include <QVariant>
#include <memory>
#include <optional>
#include <vector>

#include "platform/kit/UIBarAppearance.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// A stack of screens with a bar above them, of which the topmost shows. Layout outlet:
// "contentHost".
class UINavigationController : public UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(pellumar::UINavigationItem* topItem READ topItem NOTIFY stackChanged)
    Q_PROPERTY(bool canPop READ canPop NOTIFY stackChanged)
    Q_PROPERTY(bool isBarHidden READ isNavigationBarHidden NOTIFY barChanged)
    // The hairline's colour; invalid where the bar has the platform's own look.
    Q_PROPERTY(QVariant shadowColor READ shadowColor NOTIFY barChanged)

  public:
    UINavigationController(const UIContext& context, std::shared_ptr<UIViewController> root);

    // The root first.
    [[nodiscard]] const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const {
        return stack_;
    }
    [[nodiscard]] std::shared_ptr<UIViewController> topViewController() const {
        return stack_.back();
    }
    [[nodiscard]] bool canPop() const { return stack_.size() > 1; }

    void pushViewController(const std::shared_ptr<UIViewController>& pushed, bool animated);
    // Lets go of the topmost screen, even while it still comes; the root stays. While a screen
    // leaves, no other does.
    void popViewController(bool animated);
    // The user's step back, unless the topmost screen has a question first.
    Q_INVOKABLE void backTapped();
    // The button at the right end, which belongs to the topmost screen.
    Q_INVOKABLE void rightTapped();
    [[nodiscard]] bool isMoving() const override;

    void setNavigationBarHidden(bool hidden, bool animated);
    [[nodiscard]] bool isNavigationBarHidden() const { return isBarHidden_; }

    using BarAppearance = std::shared_ptr<const UINavigationBarAppearance>;
    void setStandardAppearance(BarAppearance appearance);
    [[nodiscard]] BarAppearance standardAppearance() const { return standard_; }
    // While the content is scrolled to its beginning; nothing is drawn differently then.
    void setScrollEdgeAppearance(BarAppearance appearance) { scrollEdge_ = std::move(appearance); }
    [[nodiscard]] BarAppearance scrollEdgeAppearance() const { return scrollEdge_; }

    bool goBack() override;

    [[nodiscard]] UINavigationItem* topItem() const { return stack_.back()->navigationItem(); }
    [[nodiscard]] QVariant shadowColor() const;

  signals:
    void stackChanged();
    void barChanged();

  protected:
    void viewDidLoad() override;
    [[nodiscard]] QList<UIViewController*> visibleChildren() const override;

  private:
    void putIntoPlace(UIViewController& screen);
    void tellOfChange(UIViewController& leaving, UIViewController& coming, bool animated) const;
    void endChange(UIViewController& leaving, UIViewController& coming, bool animated);
    void finishPop(UIViewController& uncovered, bool animated);
    // Where each screen stands, as far as those above it have come.
    void arrange();

    std::vector<std::shared_ptr<UIViewController>> stack_;
    QPointer<QQuickItem> contentHost_;
    BarAppearance standard_;
    BarAppearance scrollEdge_;
    bool isBarHidden_ = false;
    // What was popped, until it has left.
    std::shared_ptr<UIViewController> leaving_;
};

}  // namespace pellumar
