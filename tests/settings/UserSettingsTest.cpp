#include "settings/UserSettings.h"

#include <gtest/gtest.h>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

TEST(UserSettings, OnlyUsageDataIsOnFromTheStart) {
    const test::TemporaryFolder folder;
    UserDefaults defaults(QString::fromStdString((folder / "s.conf").native()));
    const UserSettings settings(defaults);
    EXPECT_TRUE(defaults.boolForKey(settings.sendUsageDataKey()));
    EXPECT_FALSE(defaults.boolForKey(settings.didShowOnboardingKey()));
    EXPECT_FALSE(defaults.boolForKey(settings.achievedSuccessKey()));
    EXPECT_FALSE(defaults.boolForKey(settings.didRequestKey()));
}

TEST(UserSettings, ReadsWhatEarlierVersionsWrote) {
    const test::TemporaryFolder folder;
    test::writeFile(folder / "s.conf",
                    "[General]\nSEND_USAGE_DATA=false\nONBOARDING_KEY=true\n"
                    "ACHIEVED_SUCCESS=true\nDIDREQUEST=true\n");
    UserDefaults defaults(QString::fromStdString((folder / "s.conf").native()));
    const UserSettings settings(defaults);
    EXPECT_FALSE(defaults.boolForKey(settings.sendUsageDataKey()));
    EXPECT_TRUE(defaults.boolForKey(settings.didShowOnboardingKey()));
    EXPECT_TRUE(defaults.boolForKey(settings.achievedSuccessKey()));
    EXPECT_TRUE(defaults.boolForKey(settings.didRequestKey()));
}

}  // namespace
}  // namespace pellumar
