#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "platform/kit/UIBarAppearance.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

struct UITabBarItem {
    QString title;
    // The name of an icon of the theme.
    QString image;
};

// Stacks of screens side by side, of which a bar at the lower edge chooses one. Layout outlet:
// "contentHost".
class UITabBarController : public UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QStringList titles READ titles CONSTANT)
    Q_PROPERTY(QStringList images READ images CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectionChanged)
    // Hidden while a screen shows that asked for it when it was pushed.
    Q_PROPERTY(bool isBarHidden READ isBarHidden NOTIFY barChanged)
    Q_PROPERTY(bool hasOpaqueBar READ hasOpaqueBar NOTIFY barChanged)

  public:
    struct Tab {
        UITabBarItem item;
        std::shared_ptr<UIViewController> controller;
    };

    explicit UITabBarController(const UIContext& context) : UIViewController(context) {}

    // At least one; the first is selected. Called before the view is loaded.
    void setTabs(std::vector<Tab> tabs);
    [[nodiscard]] const std::vector<Tab>& tabs() const { return tabs_; }

    [[nodiscard]] int selectedIndex() const { return selected_; }
    [[nodiscard]] std::shared_ptr<UIViewController> selectedViewController() const;
    // Selecting the tab that is selected pops its stack by one screen.
    Q_INVOKABLE void select(int index);

    using BarAppearance = std::shared_ptr<const UITabBarAppearance>;
    void setStandardAppearance(BarAppearance appearance);
    [[nodiscard]] BarAppearance standardAppearance() const { return standard_; }
    // While the content is scrolled to its beginning; nothing is drawn differently then.
    void setScrollEdgeAppearance(BarAppearance appearance) { scrollEdge_ = std::move(appearance); }
    [[nodiscard]] BarAppearance scrollEdgeAppearance() const { return scrollEdge_; }

    bool goBack() override;

    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QStringList images() const;
    [[nodiscard]] bool isBarHidden() const;
    [[nodiscard]] bool hasOpaqueBar() const { return standard_ && standard_->hasOpaqueBackground; }

  signals:
    void selectionChanged();
    void barChanged();

  protected:
    void viewDidLoad() override;
    [[nodiscard]] QList<UIViewController*> visibleChildren() const override;

  private:
    void showSelected();

    std::vector<Tab> tabs_;
    int selected_ = 0;
    QPointer<QQuickItem> contentHost_;
    BarAppearance standard_;
    BarAppearance scrollEdge_;
};

}  // namespace pellumar
