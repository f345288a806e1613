#pragma once

#include "engine/FileSystem.h"
#include "engine/ZipManager.h"
#include "events/PellumarAnalytics.h"
#include "platform/DispatchQueue.h"
#include "platform/SleepInhibitor.h"
#include "platform/StoreReview.h"
#include "platform/kit/UIViewController.h"
#include "platform/photos/PhotoServices.h"
#include "platform/sharing/UIActivityViewController.h"
#include "settings/UserSettings.h"

namespace pellumar {

// What the archive screens work with. All of it must outlive them.
struct ScreenServices {
    UIContext ui;
    const UserSettings& settings;
    const PellumarAnalytics& analytics;
    const FileSystem& fileSystem;
    ZipManager::Environment jobs;
    DocumentServices documents;
    PhotoServices photos;
    SharingServices sharing;
    StoreReview& review;
    SleepInhibitor& sleep;
    DispatchQueue& mainQueue;
};

}  // namespace pellumar
