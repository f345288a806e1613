#include "platform/UserDefaults.h"

#include <gtest/gtest.h>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

class UserDefaultsTest : public testing::Test {
  protected:
    [[nodiscard]] QString file() const {
        return QString::fromStdString((folder_ / "settings.conf").native());
    }

    test::TemporaryFolder folder_;
};

TEST_F(UserDefaultsTest, StoredValuesOutliveTheObjectAndRegisteredOnesDoNot) {
    {
        UserDefaults defaults(file());
        defaults.registerDefaults({{"on", true}, {"alsoOn", true}});
        EXPECT_TRUE(defaults.boolForKey("on"));
        EXPECT_FALSE(defaults.boolForKey("missing"));
        EXPECT_EQ(defaults.integerForKey("missing"), 0);
        defaults.setBool(false, "on");
        defaults.setInteger(41, "count");
        EXPECT_FALSE(defaults.boolForKey("on"));
    }
    UserDefaults again(file());
    EXPECT_FALSE(again.boolForKey("alsoOn"));
    EXPECT_EQ(again.integerForKey("count"), 41);
    again.registerDefaults({{"on", true}});
    EXPECT_FALSE(again.boolForKey("on"));
    again.setValue(QVariant(), "on");
    EXPECT_TRUE(again.boolForKey("on"));
}

TEST_F(UserDefaultsTest, TruthIsReadFromWhateverHasBeenStored) {
    UserDefaults(file()).setValue(QVariant(true), "generic");
    EXPECT_TRUE(UserDefaults(file()).boolForKey("generic"));

    test::writeFile(folder_ / "settings.conf",
                    "[General]\na=1\nb=yes\nc=TRUE\nd=2\nv=0\nw=no\nx=false\ny=\nz=a, b\n");
    const UserDefaults defaults(file());
    for (const char* key : {"a", "b", "c", "d"}) {
        EXPECT_TRUE(defaults.boolForKey(key)) << key;
    }
    for (const char* key : {"v", "w", "x", "y", "z"}) {
        EXPECT_FALSE(defaults.boolForKey(key)) << key;
    }
}

// Another process may end this one at any time.
TEST_F(UserDefaultsTest, AWriteIsOnDiskAtOnce) {
    UserDefaults defaults(file());
    defaults.setBool(true, "DIDREQUEST");
    EXPECT_NE(test::readText(folder_ / "settings.conf").find("DIDREQUEST=true"), std::string::npos);
}

}  // namespace
}  // namespace pellumar
