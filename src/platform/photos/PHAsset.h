#pragma once

#include <QString>
#include <filesystem>

namespace pellumar {

enum class PHAssetMediaType { kUnknown, kImage, kVideo };

// A photo or video of the library, as it was when the library was looked through. The file may have
// changed or gone since.
struct PHAsset {
    // Tells the asset from all others of the library, in later runs too.
    QString localIdentifier;
    PHAssetMediaType mediaType = PHAssetMediaType::kUnknown;
    std::filesystem::path file;
    // When the file was last changed, in seconds since 1970.
    qint64 changed = 0;
};

}  // namespace pellumar
