#include <QClipboard>
#include <QGuiApplication>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIAlertController.h"
#include "screens/RemarksViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

class ReasonTest : public ScreenFixture {
  protected:
    // What the alert of a failure says beside its own texts.
    [[nodiscard]] QString reason() {
        settle();
        const auto alert = presented<UIAlertController>();
        if (!alert || alert->message() != QStringLiteral("Could not complete the operation.")) {
            return QStringLiteral("no alert");
        }
        return alert->reason();
    }
    static QQuickItem* button(UIViewController& screen, const char* name) {
        return outlet<QQuickItem>(screen.view(), QString::fromLatin1(name));
    }
};

TEST_F(ReasonTest, AnExtractionTellsWhyAndHandsOnTheDetails) {
    const auto home = showHome();
    writeFile(folder / "broken.zip", "this is no archive");
    home->didConfirmUnzip(fileUrl(folder / "broken.zip"));
    EXPECT_EQ(reason().toStdString(),
              "“broken.zip” is not a ZIP archive. If it should be one, get it again.");
    EXPECT_TRUE(home->hud()->isHidden());
    const auto alert = presented<UIAlertController>();
    EXPECT_EQ(alert->alertTitle(), "Error");
    EXPECT_EQ(alert->actionTitles(), QStringList{"OK"});
    QGuiApplication::clipboard()->clear();
    QMetaObject::invokeMethod(button(*alert, "copyReason"), "clicked");
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith(alert->reason()));
    EXPECT_TRUE(copied.contains(QStringLiteral("not a ZIP archive\n")) ||
                copied.endsWith(QStringLiteral("not a ZIP archive")));
    // It stays, to be read and closed.
    EXPECT_EQ(presented<UIAlertController>(), alert);
    ASSERT_TRUE(Notice::shownIn(window));
    EXPECT_EQ(Notice::shownIn(window)->text(), "Copied");
    EXPECT_TRUE(alert->goBack());
    EXPECT_FALSE(presented<UIAlertController>());
}

// Never unasked: the alert offers it, once.
TEST_F(ReasonTest, WhatIsWholeInADamagedArchiveCanBeRescued) {
    writeFile(folder / "first.txt", "the first of two");
    writeFile(folder / "second.txt", "the second of two");
    const auto made =
        runProcess({"7zz", "a", "-mx0", "two.zip", "first.txt", "second.txt"}, folder.path());
    ASSERT_EQ(made.exitCode, 0) << made.output;
    std::string bytes = readText(folder / "two.zip");
    bytes[bytes.find("the first")] ^= 1;
    writeFile(folder / "two.zip", bytes);
    const auto home = showHome();
    home->didConfirmUnzip(fileUrl(folder / "two.zip"));
    settle();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->remedy(), "Rescue what is whole");
    QMetaObject::invokeMethod(button(*alert, "remedy"), "clicked");
    settle();
    EXPECT_TRUE(home->hud()->isHidden());
    const auto results =
        std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
    ASSERT_TRUE(results);
    ASSERT_EQ(results->urls().size(), 1);
    EXPECT_EQ(readText(*localPath(results->urls().first())), "the second of two");
    EXPECT_EQ(results->remarks(), "Not everything could be rescued");
    results->showRemarks();
    const auto remarks = presented<RemarksViewController>();
    ASSERT_TRUE(remarks);
    EXPECT_EQ(remarks->lines().value(1), "“first.txt” is lost.");
    EXPECT_EQ(eventNames(), QStringList{"failed_to_unzip"});
}

TEST_F(ReasonTest, CompressionsFromTheHomeScreenAndTheComposerTellWhy) {
    const auto home = showHome();
    home->documentPickerDidPickDocuments({fileUrl(folder / "gone.txt")});
    EXPECT_EQ(reason().toStdString(),
              "“gone.txt” is not there any more. It may have been moved, renamed or deleted.");
    EXPECT_TRUE(window.topViewController()->goBack());

    const auto composer = makeController<ZipViewController>(services);
    stack()->pushViewController(composer, false);
    composer->askTitleForFiles({fileUrl(folder / "gone.txt"), fileUrl(folder / "lost.txt")});
    presented<UIAlertController>()->choose(0);
    EXPECT_EQ(reason().toStdString(),
              "“gone.txt” is not there any more. It may have been moved, renamed or deleted.\n"
              "One other file could not be added either.");
}

TEST_F(ReasonTest, ResultsSayWhatWasOddWhenAsked) {
    const auto home = showHome();
    home->didConfirmUnzip(makeArchive("plain.zip"));
    settle();
    auto results = std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
    ASSERT_TRUE(results);
    EXPECT_EQ(results->remarks(), "");
    stack()->popViewController(false);

    // As a program that extracts itself has it.
    const QUrl archive = makeArchive("odd.zip");
    std::vector<std::uint8_t> bytes = readFile(*localPath(archive));
    const std::string before = "#!/bin/sh\nexit\n";
    bytes.insert(bytes.begin(), before.begin(), before.end());
    writeFile(*localPath(archive), bytes);
    home->didConfirmUnzip(archive);
    settle();
    results = std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
    ASSERT_TRUE(results);
    EXPECT_EQ(results->remarks(), "1 remark");
    results->showRemarks();
    const auto sheet = presented<RemarksViewController>();
    ASSERT_TRUE(sheet);
    ASSERT_EQ(sheet->lines().size(), 1);
    EXPECT_TRUE(sheet->lines().first().startsWith("There is something in front of the archive"));
    QMetaObject::invokeMethod(button(*sheet, "copyButton"), "clicked");
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("bytes before the archive"));
    QMetaObject::invokeMethod(button(*sheet, "doneButton"), "clicked");
    EXPECT_FALSE(presented<RemarksViewController>());
}

}  // namespace
}  // namespace pellumar::test
