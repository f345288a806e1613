#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Photos known. Once, before the first engine.
void registerPhotos();

}  // namespace pellumar
