#include "gui/ScreenFixture.h"
#include "screens/ConfirmationPopupViewController.h"

namespace pellumar::test {
namespace {

class KeyboardTest : public ScreenFixture {
  protected:
    // The name in its layout of what has the keyboard.
    [[nodiscard]] QString focused() const {
        const QQuickItem* const item = window.activeFocusItem();
        return item == nullptr ? QString() : item->objectName();
    }
};

TEST_F(KeyboardTest, ComesBackAfterAnOverlayAndAScreenAboveIt) {
    const auto home = showHome();
    EXPECT_EQ(focused(), "unzipButton");
    AppFileOpener::setUrl(makeArchive("a.zip"));
    const auto popup = presented<ConfirmationPopupViewController>();
    ASSERT_TRUE(popup);
    popup->unzipTapped();
    EXPECT_FALSE(home->view().findChild<QQuickItem*>("unzipButton")->isEnabled());
    settle();
    EXPECT_EQ(focused(), "openButton");
    stack()->popViewController(true);
    EXPECT_EQ(focused(), "unzipButton");
    EXPECT_TRUE(home->view().findChild<QQuickItem*>("unzipButton")->isEnabled());
}

}  // namespace
}  // namespace pellumar::test
