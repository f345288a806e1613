#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

using HomeScreenTest = ScreenFixture;

qreal constantOf(ViewController& home, const char* name) {
    return outlet<NSLayoutConstraint>(home.view(), name)->constant();
}

TEST_F(HomeScreenTest, TightensOnLowScreensOnly) {
    for (const int height : {568, 580}) {
        const auto home = showHome({360, height});
        EXPECT_EQ(constantOf(*home, "topConstraint"), 3) << height;
        EXPECT_EQ(constantOf(*home, "secondaryTopConstraint"), 0) << height;
    }
    EXPECT_GT(constantOf(*showHome({360, 581}), "topConstraint"), 3);
}

TEST_F(HomeScreenTest, AsksForARatingInTheSecondCountedLaunchOnce) {
    const auto home = showHome();
    EXPECT_EQ(review.requests, 0);

    RelevantActionCount second(defaults);
    EXPECT_TRUE(second.checkRelevantActionCount("RELEVANT_ACTION_COUNT_VAR5"));
    EXPECT_FALSE(second.checkRelevantActionCount("RELEVANT_ACTION_COUNT_VAR5"));
    RelevantActionCount third(defaults);
    EXPECT_FALSE(third.checkRelevantActionCount("RELEVANT_ACTION_COUNT_VAR5"));
    EXPECT_EQ(defaults.integerForKey("RELEVANT_ACTION_COUNT_VAR5"), 3);
}

TEST_F(HomeScreenTest, SecondLaunchSetsTheFlagAndRequestsTheReview) {
    defaults.setInteger(1, "RELEVANT_ACTION_COUNT_VAR5");
    static_cast<void>(showHome());
    EXPECT_EQ(review.requests, 1);
    EXPECT_TRUE(flag(settings.didRequestKey()));
}

TEST_F(HomeScreenTest, SatisfiedUsersAreAskedAtEveryAppearanceAndNotCounted) {
    defaults.setBool(true, settings.achievedSuccessKey());
    const auto home = showHome();
    home->zipTapped();
    stack()->popViewController(true);
    EXPECT_EQ(review.requests, 2);
    EXPECT_EQ(defaults.integerForKey("RELEVANT_ACTION_COUNT_VAR5"), 0);
}

TEST_F(HomeScreenTest, PickedArchiveIsExtractedAndListed) {
    const auto home = showHome();
    home->unzipTapped();
    const auto picker = presented<UIDocumentPickerViewController>();
    ASSERT_TRUE(picker);
    EXPECT_EQ(picker->documentTypes(), QStringList{"public.zip-archive"});
    EXPECT_FALSE(picker->allowsMultipleSelection());
    picker->cancelTapped();

    home->documentPickerDidPickDocuments({makeArchive("a b.zip")});
    EXPECT_EQ(home->hud()->label(), "Unzipping");
    EXPECT_FALSE(home->hud()->isDeterminate());
    settle();
    EXPECT_TRUE(home->hud()->isHidden());
    const auto results =
        std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
    ASSERT_TRUE(results);
    ASSERT_EQ(results->urls().size(), 1);
    EXPECT_EQ(results->urls().first().fileName(), "hello.txt");
    EXPECT_TRUE(results->hidesBottomBarWhenPushed());
    EXPECT_EQ(readText(*localPath(results->urls().first())), "hello");
    EXPECT_EQ(eventNames(), (QStringList{"tapped_unzip", "unzipped_successfuly"}));

    // Each time the screen comes into view again, what was extracted goes.
    stack()->popViewController(true);
    EXPECT_FALSE(std::filesystem::exists(*localPath(results->urls().first())));
}

TEST_F(HomeScreenTest, HandedOverArchiveIsConfirmedFirst) {
    const QUrl archive = makeArchive("Grüße aus Köln.zip");
    AppFileOpener::setUrl(archive);
    const auto home = showHome();
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
    EXPECT_EQ(defaults.integerForKey("RELEVANT_ACTION_COUNT_VAR5"), 0);
    auto popup = presented<ConfirmationPopupViewController>();
    ASSERT_TRUE(popup);
    EXPECT_EQ(outlet<QQuickItem>(popup->view(), "titleLabel")->property("text"),
              QString("Do you want to unzip Grüße aus Köln.zip?"));
    popup->cancelTapped();
    EXPECT_FALSE(presented<ConfirmationPopupViewController>());

    AppFileOpener::setUrl(archive);
    popup = presented<ConfirmationPopupViewController>();
    ASSERT_TRUE(popup);
    popup->unzipTapped();
    settle();
    EXPECT_TRUE(std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController()));
    EXPECT_EQ(eventNames().count("used_share_extension"), 2);
}

// The second overlay used to free the first, which alone knew what it had disabled: the screen
// stayed dead.
TEST_F(HomeScreenTest, TwoExtractionsAtATimeLeaveAScreenThatWorks) {
    const auto home = showHome();
    home->didConfirmUnzip(makeArchive("one.zip"));
    const std::weak_ptr<MBProgressHUD> first = home->hud();
    home->didConfirmUnzip(makeArchive("two.zip"));
    ASSERT_FALSE(first.expired());
    EXPECT_NE(first.lock(), home->hud());
    const qsizetype withOverlays = home->view().childItems().size();
    settle();
    EXPECT_TRUE(home->hud()->isHidden());
    stack()->popViewController(true);
    stack()->popViewController(true);
    settle();
    ASSERT_EQ(stack()->topViewController(), home);
    for (const QQuickItem* const each : home->view().childItems()) {
        EXPECT_TRUE(each->isEnabled());
    }
    EXPECT_EQ(home->view().childItems().size(), withOverlays - 2);
    releaseScreens();
    EXPECT_TRUE(first.expired());
}

TEST_F(HomeScreenTest, NothingHappensOnceTheScreenIsGone) {
    std::weak_ptr<ViewController> home = showHome();
    home.lock()->didConfirmUnzip(makeArchive("late.zip"));
    static_cast<void>(showHome());
    releaseScreens();
    EXPECT_TRUE(home.expired());
    settle();
    EXPECT_EQ(stack()->viewControllers().size(), 1U);
}

}  // namespace
}  // namespace pellumar::test
