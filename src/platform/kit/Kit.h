#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Kit known, and windows readable by screen
// readers. Once, before the first engine.
void registerKit();

}  // namespace pellumar
