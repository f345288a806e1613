#pragma once

#include "platform/kit/UIWindow.h"

namespace pellumar {

// Gives the window the keys that belong to no one screen: Ctrl+Q closes it, Ctrl+O on the home
// screen picks an archive. What has the keyboard is not asked first. Once.
void addShortcuts(UIWindow& window);

}  // namespace pellumar
