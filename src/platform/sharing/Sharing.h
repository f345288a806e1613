#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Sharing known. Once, before the first engine.
void registerSharing();

}  // namespace pellumar
