#include "app/WindowReviewPrompt.h"
#include "gui/ScreenFixture.h"
#include "screens/ConfirmationPopupViewController.h"

namespace pellumar::test {
namespace {

class ReviewPromptTest : public ScreenFixture {
  protected:
    void ask() {
        prompt.ask([this](bool wantsToRate) { answers.append(wantsToRate); });
        settle();
    }

    WindowReviewPrompt prompt{window};
    QList<bool> answers;
};

TEST_F(ReviewPromptTest, AsksOverTheRootScreenAndCanBeDeclined) {
    const auto home = showHome();
    ask();
    auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    // It stands already.
    ask();
    EXPECT_EQ(presented<UIAlertController>(), alert);
    alert->goBack();
    alert.reset();
    settle();
    EXPECT_EQ(answers, QList<bool>{false});
    EXPECT_FALSE(presented<UIAlertController>());

    ask();
    ASSERT_TRUE(presented<UIAlertController>());
    presented<UIAlertController>()->choose(0);
    settle();
    EXPECT_EQ(answers, (QList<bool>{false, true}));
}

// A share sheet or a popup may be there when somebody asks, and the only request of an
// installation must not be lost by it.
TEST_F(ReviewPromptTest, WaitsUntilNothingIsPresented) {
    const auto home = showHome();
    home->present(
        makeController<ConfirmationPopupViewController>(services.ui, QUrl("file:///holiday.zip")),
        true);
    ask();
    ASSERT_TRUE(presented<ConfirmationPopupViewController>());
    presented<ConfirmationPopupViewController>()->cancelTapped();
    settle();
    ASSERT_TRUE(presented<UIAlertController>());
    EXPECT_TRUE(answers.isEmpty());
    // Replaced with all it presents, the screen leaves the question open.
    window.setRootViewController(nullptr);
    settle();
    EXPECT_TRUE(answers.isEmpty());
    const auto next = showHome();
    ask();
    EXPECT_TRUE(presented<UIAlertController>());
}

}  // namespace
}  // namespace pellumar::test
