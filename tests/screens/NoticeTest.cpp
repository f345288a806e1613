#include "platform/kit/Notice.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QMouseEvent>

#include "gui/ScreenFixture.h"
#include "platform/kit/UIAlertController.h"

namespace pellumar::test {
namespace {

class NoticeTest : public ScreenFixture {
  protected:
    NoticeTest() { home = showHome(); }
    [[nodiscard]] QString shown() const {
        const Notice* const notice = Notice::shownIn(window);
        return notice == nullptr ? QString() : notice->text();
    }
    // A place in the notice, from 0 at its left end to 1.
    [[nodiscard]] QPointF spot(qreal across) const {
        const QQuickItem& item = *Notice::shownIn(window)->item();
        return item.mapToScene({item.width() * across, item.height() / 2});
    }
    void click(QPointF at) {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isPress = type == QEvent::MouseButtonPress;
            QMouseEvent event(type,
                              at,
                              window.mapToGlobal(at),
                              Qt::LeftButton,
                              isPress ? Qt::LeftButton : Qt::NoButton,
                              {});
            QGuiApplication::sendEvent(&window, &event);
        }
    }
    void press(Qt::Key key) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, {});
            QGuiApplication::sendEvent(&window, &event);
        }
    }
    [[nodiscard]] QString accessibleNames() {
        QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(&window);
        QStringList names;
        for (int i = 0; i < root->childCount(); ++i) {
            names.append(root->child(i)->text(QAccessible::Name));
        }
        return names.join('|');
    }

    std::shared_ptr<ViewController> home;
};

TEST_F(NoticeTest, OutlivesTheSheetAndTakesTheKeyboardFromNobody) {
    const auto sheet = makeController<UIAlertController>(services.ui, "sheet", "");
    sheet->addAction({"OK", UIAlertActionStyle::kDefault, {}});
    home->present(sheet, true);
    settle();
    const QQuickItem* const focused = window.activeFocusItem();
    Notice::show(window, "Copied");
    settle();
    EXPECT_EQ(window.activeFocusItem(), focused);
    EXPECT_EQ(window.topLayer(), &sheet->view());
    EXPECT_EQ(accessibleNames(), "sheet. |Copied");
    sheet->choose(0);
    settle();
    EXPECT_EQ(shown(), "Copied");
    EXPECT_TRUE(home->view().isEnabled());
    EXPECT_EQ(Notice::shownIn(window)->presence(), 1);
}

TEST_F(NoticeTest, ATapClosesItAndReachesNothingBelow) {
    int acts = 0;
    Notice::show(window, "Saved", {"Show in files", [&acts] { ++acts; }});
    settle();
    click(spot(0.2));
    settle();
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(acts, 0);
    EXPECT_EQ(eventNames(), QStringList());
    EXPECT_EQ(accessibleNames(), "Pellumar Zip");

    Notice::show(window, "Saved", {"Show in files", [&acts] { ++acts; }});
    settle();
    const QPointF button = spot(0.7);
    click(button);
    click(button);
    settle();
    EXPECT_EQ(acts, 1);
    EXPECT_EQ(shown(), QString());
}

TEST_F(NoticeTest, GoesByItselfUnlessItMustNotBeMissed) {
    UIWindow other(services.ui);
    Notice::show(other, "stays", {}, Notice::Stay::kUntilClosed);
    Notice::show(window, "first");
    Notice::show(window, "second");
    EXPECT_EQ(shown(), "second");
    Notice::shownIn(window)->setHeld(true);
    EXPECT_FALSE(waitUntil([this] { return shown().isEmpty(); }, std::chrono::milliseconds(4500)));
    Notice::shownIn(window)->setHeld(false);
    EXPECT_TRUE(waitUntil([this] { return shown().isEmpty(); }));
    ASSERT_NE(Notice::shownIn(other), nullptr);
    Notice::shownIn(other)->close();
    EXPECT_EQ(Notice::shownIn(other), nullptr);
}

// "Copied" took what must not be missed away for good, even while that waited unseen.
TEST_F(NoticeTest, WhatMustNotBeMissedComesBackAfterWhatCameLater) {
    Notice::show(window, "kept", {}, Notice::Stay::kUntilClosed);
    settle();
    const Notice& kept = *Notice::shownIn(window);
    const auto question = makeController<UIAlertController>(services.ui, "question", "");
    question->addAction({"OK", UIAlertActionStyle::kDefault, {}});
    home->present(question, true);
    settle();
    for (const char* const word : {"Copied", "Copied again"}) {
        Notice::show(window, word);
        settle();
        EXPECT_EQ(shown(), word);
        EXPECT_FALSE(kept.item()->isVisible());
    }
    question->choose(0);
    settle();
    EXPECT_EQ(shown(), "Copied again");
    EXPECT_FALSE(kept.item()->isVisible());
    Notice::shownIn(window)->close();
    ASSERT_EQ(Notice::shownIn(window), &kept);
    EXPECT_TRUE(kept.item()->isVisible());
}

// It lay over the buttons of a dialog that came after it, and took their taps.
TEST_F(NoticeTest, WaitsWhileSomethingElseIsPresented) {
    Notice::show(window, "Saved");
    settle();
    const auto question = makeController<UIAlertController>(services.ui, "question", "");
    question->addAction({"OK", UIAlertActionStyle::kDefault, {}});
    home->present(question, true);
    settle();
    ASSERT_NE(Notice::shownIn(window), nullptr);
    EXPECT_FALSE(Notice::shownIn(window)->item()->isVisible());
    question->choose(0);
    settle();
    EXPECT_TRUE(Notice::shownIn(window)->item()->isVisible());
}

// A button that was pressed by keyboard goes; the screen has the keyboard again, not nobody.
TEST_F(NoticeTest, GivesTheKeyboardBack) {
    Notice::show(window, "Saved", {"Show in files", [] {}});
    settle();
    QStringList seen;
    while (seen.size() < 20 && !seen.contains("Show in files")) {
        press(Qt::Key_Tab);
        seen.append(window.activeFocusItem()->property("text").toString());
    }
    ASSERT_EQ(seen.last(), "Show in files");
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(shown(), QString());
    EXPECT_TRUE(window.topLayer()->hasActiveFocus());
}

}  // namespace
}  // namespace pellumar::test
