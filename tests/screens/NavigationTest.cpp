#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "gui/ScreenFixture.h"
#include "screens/ZipViewController.h"

namespace pellumar::test {
namespace {

class NavigationTest : public ScreenFixture {
  protected:
    NavigationTest() : home(showHome()) {
        // The window takes its size.
        settle();
        animator.hold();
    }

    std::shared_ptr<ZipViewController> push() {
        auto screen = makeController<ZipViewController>(services);
        stack()->pushViewController(screen, true);
        return screen;
    }
    void click(const QString& name) {
        const auto* const item = outlet<QQuickItem>(home->view(), name);
        const QPointF middle = item->mapToScene({item->width() / 2, item->height() / 2});
        send(QEvent::MouseButtonPress, Qt::LeftButton, middle);
        send(QEvent::MouseButtonRelease, Qt::NoButton, middle);
        time_ += 50;
    }
    // A key, so long after the last; the screens come to rest after it, as slow frames do late.
    void press(Qt::Key key, quint64 after) {
        time_ += after;
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, {});
            event.setTimestamp(time_);
            QCoreApplication::sendEvent(&window, &event);
        }
        animator.finishAll();
        settle();
    }

    const std::shared_ptr<ViewController> home;

  private:
    void send(QEvent::Type type, Qt::MouseButtons buttons, QPointF place) {
        QMouseEvent event(type, place, window.mapToGlobal(place), Qt::LeftButton, buttons, {});
        event.setTimestamp(time_);
        QCoreApplication::sendEvent(&window, &event);
    }

    quint64 time_ = 1000;
};

TEST_F(NavigationTest, ADoubleTapOnACardPushesOneScreen) {
    animator.finishAll();
    settle();
    click("zipButton");
    click("zipButton");
    animator.stepTo(0.4);
    click("zipButton");
    click("unzipButton");
    animator.finishAll();
    EXPECT_EQ(stack()->viewControllers().size(), 2U);
    EXPECT_EQ(eventNames(), QStringList{"tapped_zip"});
    EXPECT_EQ(window.topViewController(), window.rootViewController());
}

// Where frames were slow, the second press of a key found the next screen in place, and used it.
TEST_F(NavigationTest, AKeyPressedTwiceActsOnceHoweverLateTheSecondPressArrives) {
    animator.finishAll();
    outlet<QQuickItem>(home->view(), "zipButton")->forceActiveFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        press(key, 1000);
        EXPECT_EQ(stack()->viewControllers().size(), 2U);
        press(key, 90);
        press(key, 90);
        EXPECT_EQ(window.topViewController(), window.rootViewController());
        press(key, 1000);
        EXPECT_NE(window.topViewController(), window.rootViewController());
        press(Qt::Key_Escape, 10);
        EXPECT_EQ(window.topViewController(), window.rootViewController());
        press(Qt::Key_Escape, 90);
        EXPECT_EQ(stack()->viewControllers().size(), 2U);
        press(Qt::Key_Escape, 1000);
        EXPECT_EQ(stack()->viewControllers().size(), 1U);
    }
}

// After a click on the arrow it stayed there, on a control that no one sees.
TEST_F(NavigationTest, TheKeyboardDoesNotStayOnTheArrow) {
    push();
    animator.finishAll();
    outlet<QQuickItem>(stack()->view(), "backButton")->forceActiveFocus(Qt::MouseFocusReason);
    stack()->backTapped();
    animator.finishAll();
    EXPECT_TRUE(home->view().hasActiveFocus());
}

TEST_F(NavigationTest, BackTwiceIsOneStep) {
    push();
    animator.finishAll();
    const auto top = push();
    animator.finishAll();
    EXPECT_EQ(top->view().x(), 0);
    stack()->backTapped();
    stack()->backTapped();
    animator.stepTo(0.5);
    EXPECT_GT(top->view().x(), 0);
    EXPECT_FALSE(top->view().isEnabled());
    animator.finishAll();
    EXPECT_EQ(stack()->viewControllers().size(), 2U);
    EXPECT_EQ(top->appearance(), UIViewController::Appearance::kDisappeared);
    EXPECT_EQ(top->view().parentItem(), nullptr);
    EXPECT_EQ(stack()->topViewController()->view().x(), 0);
    EXPECT_TRUE(stack()->topViewController()->view().isVisible());
}

TEST_F(NavigationTest, ScreensComeAndLeaveAtATime) {
    const auto first = push();
    animator.stepTo(0.5);
    stack()->popViewController(true);
    const auto second = push();
    animator.finishAll();
    EXPECT_EQ(stack()->topViewController(), second);
    EXPECT_EQ(second->appearance(), UIViewController::Appearance::kAppeared);
    EXPECT_EQ(first->appearance(), UIViewController::Appearance::kDisappeared);
    EXPECT_EQ(home->appearance(), UIViewController::Appearance::kDisappeared);
    EXPECT_FALSE(home->view().isVisible());
    stack()->popViewController(true);
    animator.finishAll();
    EXPECT_EQ(home->appearance(), UIViewController::Appearance::kAppeared);
    EXPECT_EQ(home->view().x(), 0);
    EXPECT_TRUE(home->view().isEnabled());
    EXPECT_FALSE(stack()->isMoving());
}

}  // namespace
}  // namespace pellumar::test
