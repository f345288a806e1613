#include <vector>

#include "gui/ScreenFixture.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar::test {
namespace {

// Animations end when they are told.
class HeldAnimator : public Animator {
  public:
    void animate(std::chrono::milliseconds /*duration*/,
                 const QEasingCurve& /*easing*/,
                 Step /*step*/,
                 Finished finished) override {
        held_.push_back(std::move(finished));
    }
    void finishAll() {
        for (const Finished& each : std::exchange(held_, {})) {
            each();
        }
    }

  private:
    std::vector<Finished> held_;
};

class PresentationTest : public ScreenFixture {
  protected:
    PresentationTest() : root(makeController<UIAlertController>(held, "root", "")) {
        window.setRootViewController(root);
        window.makeKeyAndVisible();
    }
    std::shared_ptr<UIAlertController> make(const QString& title) {
        return makeController<UIAlertController>(held, title, QString());
    }

    HeldAnimator holding;
    const UIContext held{viewLoader, holding, {}};
    std::shared_ptr<UIAlertController> root;
};

// An archive that is handed over just as a sheet closes must still be asked about: it hung from the
// sheet and went with it.
TEST_F(PresentationTest, WhatIsPresentedWhileAnotherLeavesComesAfterIt) {
    const auto leaving = make("leaving");
    root->present(leaving, true);
    holding.finishAll();
    QStringList order;
    leaving->dismiss(true, [&order] { order.append("gone"); });
    root->present(make("next"), true, [&order] { order.append("next"); });
    leaving->present(make("lost with its presenter"), true);
    EXPECT_EQ(window.topViewController(), leaving);

    holding.finishAll();
    const auto next = presented<UIAlertController>();
    ASSERT_TRUE(next);
    EXPECT_EQ(next->alertTitle(), "next");
    EXPECT_EQ(next->presentingViewController(), root);
    EXPECT_EQ(window.topLayer(), &next->view());
    holding.finishAll();
    EXPECT_EQ(order, (QStringList{"gone", "next"}));
    EXPECT_FALSE(next->presentedViewController());
}

TEST_F(PresentationTest, EveryScreenAskedForStandsAboveTheLast) {
    root->present(make("first"), true);
    root->present(make("second"), true);
    const auto second = presented<UIAlertController>();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->alertTitle(), "second");
    EXPECT_TRUE(second->view().isEnabled());
    EXPECT_FALSE(root->view().isEnabled());
    root->dismiss(false);
    EXPECT_EQ(window.topViewController(), root);
    EXPECT_TRUE(root->view().isEnabled());
}

}  // namespace
}  // namespace pellumar::test
