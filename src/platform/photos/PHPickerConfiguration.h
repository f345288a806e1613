#pragma once

#include <set>

#include "platform/photos/PHAsset.h"

namespace pellumar {

// What a PHPickerViewController offers.
struct PHPickerConfiguration {
    // Whether results tell the asset's identifier in the library.
    bool isBoundToLibrary = false;
    int selectionLimit = 1;
    std::set<PHAssetMediaType> filter;
};

}  // namespace pellumar
