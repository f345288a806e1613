#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Kit known. Once, before the first engine.
void registerKit();

}  // namespace pellumar
