#pragma once

#include <QQmlEngine>

namespace pellumar {

// What the theme follows: the user's wishes.
struct LookSettings {
    bool isDark = false;
    bool isStill = false;
    qreal textScale = 1;
};

// Makes the theme, the controls and what they draw themselves of QML module Pellumar.Look known.
// Once, before the first engine.
void registerLook();

// Gives an engine the icons: "image://icon/NAME/RRGGBB" is the icon in that colour.
void installIcons(QQmlEngine& engine);

// Makes the engine's theme follow; may be called again at any time.
void applyLook(QQmlEngine& engine, const LookSettings& settings);

}  // namespace pellumar
