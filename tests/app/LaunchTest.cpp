#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <csignal>
#include <filesystem>

#include "app/Composition.h"
#include "platform/FileUrl.h"
#include "screens/ConfirmationPopupViewController.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

// The application as main puts it together, in a home folder of its own.
class LaunchTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        for (const char* const kind : {"DATA", "CONFIG", "CACHE", "STATE"}) {
            qputenv(QByteArray("XDG_") + kind + "_HOME", (home() / kind).c_str());
        }
        qputenv("HOME", home().path().c_str());
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
        qputenv("PELLUMAR_REDUCED_MOTION", "1");
    }
    LaunchTest() { defaults().setBool(true, "ONBOARDING_KEY"); }

    static const TemporaryFolder& home() {
        static const TemporaryFolder folder;
        return folder;
    }
    static UserDefaults& defaults() { return UserSettings::shared().userDefaults(); }
    static qint64 countedLaunches() {
        return defaults().integerForKey("RELEVANT_ACTION_COUNT_VAR5");
    }
    static QByteArray nameOf(const std::filesystem::path& task) {
        QFile file(task / "comm");
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // Of the threads of ours, which Qt has given no name.
    static std::ptrdiff_t ownThreads() {
        const QByteArray program = nameOf("/proc/self");
        const std::filesystem::directory_iterator tasks("/proc/self/task");
        return std::count_if(begin(tasks), end(tasks), [&program](const auto& task) {
            return nameOf(task.path()) == program;
        });
    }
    static bool isCrashCaught() {
        struct sigaction action = {};
        ::sigaction(SIGSEGV, nullptr, &action);
        return action.sa_handler != SIG_DFL;
    }
    static bool isOnDisk(const char* folder) {
        return std::filesystem::exists(home() / "DATA/pellumar-zip" / folder);
    }
};

TEST_F(LaunchTest, NoServiceRunsBeforeTheLaunch) {
    const std::ptrdiff_t before = ownThreads();
    Composition application;
    QCoreApplication::processEvents();
    EXPECT_EQ(ownThreads(), before);
    EXPECT_FALSE(isCrashCaught());
    EXPECT_FALSE(isOnDisk("Analytics"));
    EXPECT_FALSE(isOnDisk("RemoteConfig"));

    application.launch({});
    EXPECT_GE(ownThreads(), before + 2);
    EXPECT_TRUE(isCrashCaught());
    EXPECT_TRUE(application.stop());
}

TEST_F(LaunchTest, ALaunchForAnArchiveAsksAboutItAndIsNotCounted) {
    writeFile(home() / "holiday.zip", "x");
    Composition application;
    application.launch({fileUrl(home() / "holiday.zip")});
    const auto popup = std::dynamic_pointer_cast<ConfirmationPopupViewController>(
        application.window().topViewController());
    ASSERT_TRUE(popup);
    EXPECT_EQ(countedLaunches(), 0);
}

TEST_F(LaunchTest, ALaunchForNothingIsCounted) {
    Composition application;
    application.launch({});
    EXPECT_EQ(application.window().topViewController(), application.window().rootViewController());
    EXPECT_EQ(countedLaunches(), 1);
}

}  // namespace
}  // namespace pellumar::test
