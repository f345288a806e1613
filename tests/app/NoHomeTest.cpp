#include <gtest/gtest.h>

#include <QProcess>

#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

// Without a home, what is the application's own would be "/.cache/pellumar-zip" and the like, and
// it empties such folders when it starts.
TEST(NoHomeTest, StopsInWordsBeforeItTouchesAnything) {
    const TemporaryFolder folder;
    for (const char* const home : {"HOME=", "HOME=relative"}) {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.path().string()));
        process.start("env",
                      {"-u",
                       "XDG_DATA_HOME",
                       "-u",
                       "XDG_CONFIG_HOME",
                       "-u",
                       "XDG_CACHE_HOME",
                       home,
                       "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere",
                       "QT_QPA_PLATFORM=offscreen",
                       PELLUMAR_ZIP});
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 1);
        EXPECT_TRUE(process.readAllStandardError().contains("pellumar-zip: There is no home"));
        EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    }
}

}  // namespace
}  // namespace pellumar::test
