#include <gtest/gtest.h>

#include <QProcess>

#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

struct Ended {
    int code = -1;
    QByteArray said;
    QByteArray complained;
};

// The program with these words for env(1) and its own arguments, in `folder`; without a bus every
// start is the first.
Ended run(const TemporaryFolder& folder, const QStringList& environment, QStringList arguments) {
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(folder.path().string()));
    arguments.prepend(PELLUMAR_ZIP);
    process.start("env",
                  QStringList{"-u",
                              "XDG_DATA_HOME",
                              "-u",
                              "XDG_CONFIG_HOME",
                              "-u",
                              "XDG_CACHE_HOME",
                              "-u",
                              "WAYLAND_DISPLAY",
                              "-u",
                              "QT_QPA_PLATFORM",
                              "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere"} +
                      environment + arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

// Without a home, what is the application's own would be "/.cache/pellumar-zip" and the like, and
// it empties such folders when it starts.
TEST(StartInWordsTest, StopsWithoutAHomeBeforeItTouchesAnything) {
    for (const char* const home : {"HOME=", "HOME=relative"}) {
        const TemporaryFolder folder;
        const Ended ended = run(folder, {home, "QT_QPA_PLATFORM=offscreen"}, {});
        EXPECT_EQ(ended.code, 1);
        EXPECT_TRUE(ended.complained.contains("pellumar-zip: There is no home"));
        EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    }
}

TEST(StartInWordsTest, AnswersWithoutADisplay) {
    const TemporaryFolder folder;
    const QString home = "HOME=" + QString::fromStdString(folder.path().string());
    const Ended help = run(folder, {home, "DISPLAY="}, {"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.said.contains("[ARCHIVE...]")) << help.said.toStdString();
    EXPECT_FALSE(help.said.contains("gapplication"));
    const Ended version = run(folder, {home, "DISPLAY="}, {"-platform", "xcb", "--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.said.startsWith("pellumar-zip 1.")) << version.said.toStdString();
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

// It used to end with an abort, after lines about plug-ins.
TEST(StartInWordsTest, StopsWithoutADisplay) {
    const TemporaryFolder folder;
    const QString home = "HOME=" + QString::fromStdString(folder.path().string());
    const QStringList deaths[] = {{home, "DISPLAY="},
                                  {home, "DISPLAY=:4711"},
                                  {home, "WAYLAND_DISPLAY=gone", "QT_QPA_PLATFORM=wayland"},
                                  {home, "QT_QPA_PLATFORM=nonsense"}};
    for (const QStringList& environment : deaths) {
        const Ended ended = run(folder, environment, {"holiday.zip"});
        EXPECT_EQ(ended.code, 1);
        EXPECT_TRUE(ended.complained.startsWith("pellumar-zip: There is no display"))
            << ended.complained.toStdString();
        EXPECT_EQ(ended.complained.count('\n'), 1) << ended.complained.toStdString();
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace pellumar::test
