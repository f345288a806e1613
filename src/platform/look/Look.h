#pragma once

#include <QQmlEngine>

namespace pellumar {

// What the theme follows: the user's wishes.
struct LookSettings {
    bool isDark = false;
    bool isStill = false;
    qreal textScale = 1;
};

// Gives an engine the icons: "image://icon/NAME/RRGGBB" is the icon in that colour.
void installIcons(QQmlEngine& engine);

// Makes the engine's theme follow; may be called again at any time.
void applyLook(QQmlEngine& engine, const LookSettings& settings);

}  // namespace pellumar
