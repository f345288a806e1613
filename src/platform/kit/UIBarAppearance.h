#pragma once

#include <QColor>
#include <QMetaType>

namespace pellumar {

// How a navigation bar looks. Without one it has the platform's own look.
struct UINavigationBarAppearance {
    Q_GADGET
    // The hairline below the bar.
    Q_PROPERTY(QColor shadowColor MEMBER shadowColor)

  public:
    QColor shadowColor = QColor(0, 0, 0, 77);

    friend bool operator==(const UINavigationBarAppearance&,
                           const UINavigationBarAppearance&) = default;
};

// How a tab bar looks. Without one it has the platform's own look.
struct UITabBarAppearance {
    Q_GADGET
    Q_PROPERTY(bool hasOpaqueBackground MEMBER hasOpaqueBackground)

  public:
    bool hasOpaqueBackground = false;

    friend bool operator==(const UITabBarAppearance&, const UITabBarAppearance&) = default;
};

}  // namespace pellumar
