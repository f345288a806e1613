#include <vector>

#include "gui/ScreenFixture.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar::test {
namespace {

class PresentationTest : public ScreenFixture {
  protected:
    PresentationTest() : root(make("root")) {
        window.setRootViewController(root);
        window.makeKeyAndVisible();
        animator.hold();
    }
    std::shared_ptr<UIAlertController> make(const QString& title) {
        return makeController<UIAlertController>(services.ui, title, QString());
    }
    // Presented, and come to its place.
    std::shared_ptr<UIAlertController> show(const QString& title) {
        auto shown = make(title);
        root->present(shown, true);
        animator.finishAll();
        return shown;
    }

    std::shared_ptr<UIAlertController> root;
};

// An archive that is handed over just as a sheet closes must still be asked about: it hung from the
// sheet and went with it.
TEST_F(PresentationTest, WhatIsPresentedWhileAnotherLeavesComesAfterIt) {
    const auto leaving = show("leaving");
    bool hasGone = false;
    EXPECT_TRUE(leaving->dismissSelf(true, [&hasGone] { hasGone = true; }));
    root->present(make("next"), true);
    leaving->present(make("lost with its presenter"), true);
    EXPECT_EQ(window.topViewController(), leaving);

    animator.finish();
    const auto next = presented<UIAlertController>();
    ASSERT_TRUE(next);
    EXPECT_EQ(next->alertTitle(), "next");
    EXPECT_EQ(next->presentingViewController(), root);
    EXPECT_EQ(window.topLayer(), &next->view());
    animator.finishAll();
    EXPECT_TRUE(hasGone);
    EXPECT_FALSE(next->presentedViewController());
    EXPECT_FALSE(leaving->presentingViewController());
}

TEST_F(PresentationTest, EveryScreenAskedForStandsAboveTheLast) {
    root->present(make("first"), true);
    root->present(make("second"), true);
    const auto second = presented<UIAlertController>();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->alertTitle(), "second");
    EXPECT_TRUE(second->view().isEnabled());
    EXPECT_FALSE(root->view().isEnabled());
    window.setRootViewController(root);
    EXPECT_EQ(window.topViewController(), root);
    EXPECT_TRUE(root->view().isEnabled());
}

// Two taps on "Unzip" were two dismissals, and the second ran its completion as well.
TEST_F(PresentationTest, AScreenThatLeavesIsNotDismissedAgain) {
    const auto shown = show("shown");
    int completions = 0;
    const auto count = [&completions] { ++completions; };
    EXPECT_TRUE(shown->dismissSelf(true, count));
    EXPECT_FALSE(shown->view().isEnabled());
    EXPECT_FALSE(shown->dismissSelf(true, count));
    EXPECT_FALSE(shown->dismissSelf(false, count));
    EXPECT_TRUE(shown->goBack());
    animator.finishAll();
    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(shown->dismissSelf(true, count));
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(window.topViewController(), root);
    EXPECT_TRUE(root->view().isEnabled());
}

TEST_F(PresentationTest, WhatStillComesCanLeave) {
    const auto shown = make("shown");
    root->present(shown, true);
    animator.stepTo(0.5);
    EXPECT_EQ(shown->presentation(), 0.5);
    EXPECT_TRUE(shown->dismissSelf(true));
    animator.stepTo(0.5);
    EXPECT_EQ(shown->presentation(), 0.25);
    animator.finishAll();
    EXPECT_EQ(shown->presentation(), 0);
    EXPECT_EQ(shown->appearance(), UIViewController::Appearance::kDisappeared);
    // It can be shown once more.
    root->present(shown, true);
    animator.finishAll();
    EXPECT_EQ(presented<UIAlertController>(), shown);
}

// A picker that had copied took the question for another archive with it, which stood above.
TEST_F(PresentationTest, WhatStandsAboveAScreenOutlivesIt) {
    const auto picker = show("picker");
    const auto popup = show("popup");
    int completions = 0;
    picker->dismissSelf(true, [&completions] { ++completions; });
    EXPECT_EQ(window.topViewController(), popup);
    EXPECT_TRUE(popup->view().isEnabled());
    animator.finishAll();
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(window.topViewController(), popup);
    EXPECT_EQ(popup->presentingViewController(), root);
    EXPECT_EQ(window.topLayer(), &popup->view());
    EXPECT_TRUE(popup->view().window());
    EXPECT_FALSE(picker->presentedViewController());
    popup->dismissSelf(true);
    animator.finishAll();
    EXPECT_EQ(window.topViewController(), root);
}

TEST_F(PresentationTest, TheKeyboardComesWithTheScreenAndReturns) {
    const auto shown = make("shown");
    QQuickItem* const before = window.activeFocusItem();
    root->present(shown, true);
    EXPECT_FALSE(shown->view().hasActiveFocus());
    animator.finishAll();
    EXPECT_TRUE(shown->view().hasActiveFocus());
    shown->dismissSelf(true);
    EXPECT_FALSE(shown->view().hasActiveFocus());
    animator.finishAll();
    EXPECT_EQ(window.activeFocusItem(), before);
}

TEST_F(PresentationTest, AMaximisedWindowStaysSoWhenTheRootChanges) {
    window.showMaximized();
    window.setRootViewController(make("another"));
    window.makeKeyAndVisible();
    EXPECT_TRUE(window.windowStates() & Qt::WindowMaximized);
    window.showFullScreen();
    window.makeKeyAndVisible();
    EXPECT_TRUE(window.windowStates() & Qt::WindowFullScreen);
}

}  // namespace
}  // namespace pellumar::test
