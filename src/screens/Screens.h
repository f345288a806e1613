#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Screens known. Once, before the first engine.
void registerScreens();

}  // namespace pellumar
