#pragma once

#include "platform/DispatchQueue.h"
#include "platform/FolderQueue.h"
#include "platform/photos/PHImageManager.h"
#include "platform/photos/PHPhotoLibrary.h"

namespace pellumar {

// What the photo source works with. All of it must outlive it.
struct PhotoServices {
    const PHPhotoLibrary& library;
    PHImageManager& images;
    DispatchQueue& mainQueue;
    DispatchQueue& backgroundQueue;
    // For looks into folders, some of which may hang.
    FolderQueue& folders;
};

}  // namespace pellumar
