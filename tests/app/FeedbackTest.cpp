#include "app/FeedbackViewController.h"

#include "gui/ScreenFixture.h"

namespace pellumar::test {
namespace {

class FeedbackTest : public ScreenFixture {
  protected:
    FeedbackTest() {
        home_->present(feedback, true);
        send = outlet<QQuickItem>(feedback->view(), "sendButton");
    }

    [[nodiscard]] QList<QQuickItem*> stars() const {
        auto* const row = outlet<StarEvaluationView>(feedback->view(), "starEvaluationView");
        return row->view()->findChildren<QQuickItem*>("starImageViews");
    }
    void tapStar(int tag) {
        for (QQuickItem* const star : stars()) {
            if (star->parentItem()->property("tag") == tag) {
                QMetaObject::invokeMethod(star->parentItem(), "clicked");
            }
        }
    }
    [[nodiscard]] bool isGone() const { return !presented<FeedbackViewController>(); }

  private:
    const std::shared_ptr<ViewController> home_ = showHome();

  protected:
    const std::shared_ptr<FeedbackViewController> feedback =
        makeController<FeedbackViewController>(services.ui, settings, analytics, review);
    QQuickItem* send = nullptr;
};

TEST_F(FeedbackTest, NothingCanBeSentBeforeAStarIsGiven) {
    ASSERT_EQ(stars().size(), 5);
    EXPECT_FALSE(send->isEnabled());
    EXPECT_EQ(send->opacity(), 0.5);
    EXPECT_EQ(send->property("cornerRadius"), 16);
    tapStar(0);
    EXPECT_TRUE(send->isEnabled());
    EXPECT_EQ(send->opacity(), 1);
    feedback->goBack();
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(eventNames().isEmpty());
}

TEST_F(FeedbackTest, ThreeStarsAreOnlyReported) {
    tapStar(4);
    tapStar(2);
    EXPECT_EQ(feedback->evaluation(), 3);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(stars()[i]->property("image"), i < 3 ? "starSelected" : "starDeselected") << i;
    }
    feedback->sendTapped();
    settle();
    EXPECT_TRUE(isGone());
    ASSERT_EQ(eventNames(), QStringList{"evaluated_app"});
    EXPECT_EQ(events.events().front().parameters->value("rating"), 3);
    EXPECT_FALSE(flag(settings.achievedSuccessKey()));
    EXPECT_EQ(review.requests, 0);
}

TEST_F(FeedbackTest, FourStarsLeadToTheStore) {
    tapStar(3);
    feedback->sendTapped();
    settle();
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(flag(settings.achievedSuccessKey()));
    EXPECT_EQ(review.requests, 1);
}

}  // namespace
}  // namespace pellumar::test
