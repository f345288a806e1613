#pragma once

#include <QColor>

namespace pellumar {

// How a navigation bar looks. Without one it has the platform's own look.
struct UINavigationBarAppearance {
    // The hairline below the bar.
    QColor shadowColor = QColor(0, 0, 0, 77);
};

// How a tab bar looks. Without one it has the platform's own look.
struct UITabBarAppearance {
    bool hasOpaqueBackground = false;
};

}  // namespace pellumar
