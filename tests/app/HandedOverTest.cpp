#include "app/HandedOverArchives.h"
#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIAlertController.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

using Popup = ConfirmationPopupViewController;

class HandedOverTest : public ScreenFixture {
  protected:
    HandedOverTest() {
        animator.hold();
        for (int i = 1; i <= 100; ++i) {
            hundred.append(makeArchive(std::to_string(i) + ".zip"));
        }
    }

    static QStringList names(const QList<QUrl>& urls) {
        QStringList names;
        for (const QUrl& url : urls) {
            names.append(url.fileName());
        }
        return names;
    }
    // Lets all that moves come to its end, and what waits for that run.
    void come() {
        for (int round = 0; round < 4; ++round) {
            animator.finishAll();
            settle();
        }
    }
    [[nodiscard]] int popups() const {
        int count = 0;
        for (auto each = window.rootViewController(); each;
             each = each->presentedViewController()) {
            count += std::dynamic_pointer_cast<Popup>(each) ? 1 : 0;
        }
        return count;
    }
    // Declines each question as it comes, and returns what was asked about.
    QStringList answerAll() {
        QStringList asked;
        while (const auto popup = presented<Popup>()) {
            EXPECT_EQ(popups(), 1);
            const QString question =
                outlet<QQuickItem>(popup->view(), "titleLabel")->property("text").toString();
            asked.append(question.mid(QString("Do you want to unzip ").size()).chopped(1));
            popup->cancelTapped();
            // A second tap on the button, as fast as can be.
            popup->cancelTapped();
            popup->unzipTapped();
            come();
        }
        return asked;
    }
    std::shared_ptr<UIAlertController> toldOf(const QUrl& url) {
        archives.add({url});
        come();
        return presented<UIAlertController>();
    }

    QList<QUrl> hundred;
    UIStoryboard storyboard;
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(
        AppDelegate::Environment{services.ui, storyboard, settings, fileSystem, console, {}});
    HandedOverArchives archives{*delegate, window};
};

TEST_F(HandedOverTest, AHundredAreAskedAboutInTheirOrderOneAfterAnother) {
    // Nobody is there to take them yet.
    archives.add(hundred.first(40));
    EXPECT_EQ(AppFileOpener::url(), hundred.first());
    static_cast<void>(showHome());
    archives.add(hundred.sliced(40));
    come();
    EXPECT_EQ(answerAll(), names(hundred));
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
    EXPECT_EQ(eventNames().count("used_share_extension"), 100);
    EXPECT_EQ(eventNames().size(), 100);
}

// The question lay over the picker and below what the picker brought, or went with it.
TEST_F(HandedOverTest, TheQuestionWaitsForWhatIsPresentedOrAtWork) {
    const auto home = showHome();
    come();
    home->unzipTapped();
    come();
    archives.add(hundred.first(2));
    come();
    const auto picker = presented<UIDocumentPickerViewController>();
    ASSERT_TRUE(picker);
    ASSERT_TRUE(Notice::shownIn(window));
    EXPECT_EQ(Notice::shownIn(window)->text(), "2 archives are next, when this is done");
    // What is picked is extracted, and its list comes, before anything is asked.
    picker->dismissSelf(true, [&] { home->documentPickerDidPickDocuments({hundred[9]}); });
    animator.finishAll();
    EXPECT_FALSE(home->hud()->isHidden());
    QCoreApplication::processEvents();
    EXPECT_EQ(window.topViewController(), window.rootViewController());
    come();
    EXPECT_EQ(stack()->viewControllers().size(), 2U);
    archives.add(hundred.sliced(2, 1));
    come();
    EXPECT_EQ(answerAll(), names(hundred.first(3)));
    EXPECT_EQ(window.topViewController(), window.rootViewController());
    EXPECT_FALSE(Notice::shownIn(window)) << "which is true no more";
}

// A screen that has gone brings nothing more, though its job goes on.
TEST_F(HandedOverTest, AJobThatWasLeftHoldsUpNoQuestion) {
    const auto home = showHome();
    come();
    home->zipTapped();
    come();
    auto composer = std::dynamic_pointer_cast<ZipViewController>(stack()->topViewController());
    ASSERT_TRUE(composer);
    composer->askTitleForFiles({hundred[9]});
    come();
    presented<UIAlertController>()->choose(0);
    animator.finishAll();
    const auto pass = [&] {
        QCoreApplication::processEvents();
        mainQueue.runAll();
        animator.finishAll();
    };
    archives.add(hundred.first(1));
    pass();
    EXPECT_FALSE(presented<Popup>());
    composer.reset();
    stack()->popViewController(true);
    pass();
    releaseScreens();
    pass();
    EXPECT_TRUE(presented<Popup>());
}

TEST_F(HandedOverTest, ADoubleClickOnUnzipExtractsOnce) {
    static_cast<void>(showHome());
    come();
    archives.add({makeArchive("one.zip")});
    come();
    const auto popup = presented<Popup>();
    ASSERT_TRUE(popup);
    popup->unzipTapped();
    popup->unzipTapped();
    animator.stepTo(0.5);
    popup->unzipTapped();
    popup->cancelTapped();
    come();
    EXPECT_EQ(stack()->viewControllers().size(), 2U);
    EXPECT_EQ(eventNames().count("unzipped_successfuly"), 1);
}

TEST_F(HandedOverTest, WhatIsRefusedIsToldInWords) {
    static_cast<void>(showHome());
    come();
    writeFile(folder / "PHOTOS.ZIP", "x");
    writeFile(folder / "data.7z", "x");
    const std::pair<QUrl, QString> cases[] = {
        {fileUrl(folder / "PHOTOS.ZIP"), "“PHOTOS.ZIP” has its ending in capital letters."},
        {fileUrl(folder / "data.7z"), "“data.7z” is not named as a ZIP archive."},
        {fileUrl(folder / "gone.tar"), "“gone.tar” is not named as a ZIP archive."},
    };
    for (const auto& [url, words] : cases) {
        const auto alert = toldOf(url);
        ASSERT_TRUE(alert) << qPrintable(url.toString());
        EXPECT_TRUE(alert->message().contains(words)) << qPrintable(alert->message());
        alert->choose(0);
        come();
        EXPECT_FALSE(presented<UIAlertController>());
    }
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
    EXPECT_EQ(eventNames(), QStringList());

    // Among others, each has its turn.
    archives.add({hundred[0], fileUrl(folder / "data.7z"), hundred[1]});
    come();
    EXPECT_TRUE(presented<Popup>());
    presented<Popup>()->cancelTapped();
    come();
    QStringList rest;
    for (int i = 0; i < 2; ++i) {
        if (const auto alert = presented<UIAlertController>()) {
            rest.append("words");
            alert->choose(0);
            come();
        } else {
            rest += answerAll();
        }
    }
    EXPECT_EQ(rest, (QStringList{"words", "2.zip"}));
}

// A launch for an archive asks about that one and for nothing else, whatever came with it.
TEST_F(HandedOverTest, AtTheStartTheFirstThatIsTakenIsPending) {
    archives.add({fileUrl(folder / "data.7z"), hundred[0], hundred[1]});
    EXPECT_EQ(AppFileOpener::url(), hundred[0]);
    static_cast<void>(showHome());
    come();
    EXPECT_EQ(defaults.integerForKey("RELEVANT_ACTION_COUNT_VAR5"), 0);
    ASSERT_TRUE(presented<Popup>());
    presented<Popup>()->cancelTapped();
    come();
    ASSERT_TRUE(presented<UIAlertController>());
    presented<UIAlertController>()->choose(0);
    come();
    EXPECT_EQ(answerAll(), (QStringList{"2.zip"}));
}

}  // namespace
}  // namespace pellumar::test
