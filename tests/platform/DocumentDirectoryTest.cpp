#include "platform/DocumentDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace pellumar {
namespace {

// Runs in a process of its own, so that nothing else sees the environment change.
void tellPath(const char* dataHome, const char* home) {
    ::setenv("XDG_DATA_HOME", dataHome, 1);
    ::setenv("HOME", home, 1);
    std::fputs(DocumentDirectory().path().c_str(), stderr);
    std::exit(0);
}

TEST(DocumentDirectoryDeathTest, IsInTheDataFolderOrNowhere) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        tellPath("/data", "/me"), testing::ExitedWithCode(0), "^/data/pellumar-zip/Documents$");
    for (const char* useless : {"", "relative/folder"}) {
        EXPECT_EXIT(tellPath(useless, "/me"),
                    testing::ExitedWithCode(0),
                    "^/me/.local/share/pellumar-zip/Documents$");
    }
    EXPECT_DEATH(tellPath("", ""), "No folder for documents");
}

}  // namespace
}  // namespace pellumar
