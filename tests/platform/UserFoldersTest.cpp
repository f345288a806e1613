#include "platform/UserFolders.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "platform/DocumentDirectory.h"
#include "platform/UserDefaults.h"

namespace pellumar {
namespace {

// Runs in a process of its own, so that nothing else sees the environment change.
template <typename Path>
void tell(const char* home, const char* xdg, Path path) {
    ::setenv("HOME", home, 1);
    for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
        ::setenv(variable, xdg, 1);
    }
    std::fprintf(stderr, "%s", std::filesystem::path(path()).c_str());
    std::exit(0);
}

std::filesystem::path reason() {
    return UserFolders::whyMissing().value_or("none");
}

class UserFoldersDeathTest : public testing::Test {
  protected:
    UserFoldersDeathTest() { testing::GTEST_FLAG(death_test_style) = "threadsafe"; }

    static void expect(const char* home, const char* xdg, auto path, const char* told) {
        EXPECT_EXIT(tell(home, xdg, path), testing::ExitedWithCode(0), told) << home << xdg;
    }
};

TEST_F(UserFoldersDeathTest, TellsFoldersOfTheApplicationsOwn) {
    const auto documents = [] { return DocumentDirectory().path(); };
    const auto preferences = [] { return UserDefaults::standardFile().toStdString(); };
    const auto inbox = [] { return UserFolders::cache("Inbox"); };
    expect("/me", "/set", documents, "^/set/pellumar-zip/Documents$");
    expect("", "/set", preferences, "^/set/pellumar-zip/pellumar-zip.conf$");
    expect("", "/set", reason, "^none$");
    for (const char* useless : {"", "relative/folder"}) {
        expect("/me", useless, documents, "^/me/.local/share/pellumar-zip/Documents$");
        expect("/me", useless, preferences, "^/me/.config/pellumar-zip/pellumar-zip.conf$");
        expect("/me", useless, inbox, "^/me/.cache/pellumar-zip/Inbox$");
        expect("/me", useless, reason, "^none$");
    }
}

// An empty path below which something is then emptied is the root folder.
TEST_F(UserFoldersDeathTest, TellsNoFolderWithoutAHome) {
    for (const char* useless : {"", "relative/folder"}) {
        expect(useless, useless, reason, "^There is no home folder");
        EXPECT_DEATH(tell(useless, "", [] { return UserFolders::data("Shared"); }), "No folder");
        EXPECT_DEATH(tell(useless, "", [] { return UserFolders::cache("Inbox"); }), "No folder");
        EXPECT_DEATH(tell(useless, "", [] { return UserFolders::config("platform.ini"); }),
                     "No folder");
    }
}

}  // namespace
}  // namespace pellumar
