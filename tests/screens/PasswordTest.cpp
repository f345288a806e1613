#include "screens/PasswordViewController.h"

#include <QAccessible>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"
#include "screens/UnzipViewController.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

class PasswordTest : public ScreenFixture {
  protected:
    std::shared_ptr<PasswordViewController> openLocked() {
        writeFile(folder / "secret.txt", "secret");
        const ProcessResult made = runProcess(
            {"7zz", "a", "-tzip", "-pgeheim", "locked.zip", "secret.txt"}, folder.path());
        EXPECT_EQ(made.exitCode, 0) << made.output;
        home_ = showHome();
        home_->didConfirmUnzip(fileUrl(folder / "locked.zip"));
        settle();
        return presented<PasswordViewController>();
    }
    [[nodiscard]] std::shared_ptr<UnzipViewController> results() const {
        return std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
    }
    [[nodiscard]] static QString wrongLine(PasswordViewController& dialog) {
        return outlet<QQuickItem>(dialog.view(), "wrongLine")->property("text").toString();
    }

    std::shared_ptr<ViewController> home_;
};

TEST_F(PasswordTest, AWrongOneIsToldInPlaceAndTheRightOneOpensOnce) {
    const auto dialog = openLocked();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->archiveName(), "locked.zip");
    EXPECT_TRUE(home_->hud()->isHidden());
    dialog->openTapped("");
    EXPECT_FALSE(dialog->isTrying());
    dialog->openTapped("falsch");
    EXPECT_TRUE(dialog->isTrying());
    settle();
    EXPECT_EQ(presented<PasswordViewController>(), dialog);
    EXPECT_FALSE(wrongLine(*dialog).isEmpty());
    dialog->edited();
    EXPECT_TRUE(wrongLine(*dialog).isEmpty());

    dialog->openTapped("geheim");
    dialog->openTapped("geheim");
    settle();
    EXPECT_FALSE(presented<PasswordViewController>());
    ASSERT_TRUE(results());
    EXPECT_EQ(stack()->viewControllers().size(), 2U);
    EXPECT_EQ(readText(*localPath(results()->urls().first())), "secret");
    EXPECT_TRUE(home_->hud()->isHidden());
    EXPECT_EQ(eventNames(), QStringList{"unzipped_successfuly"});
}

TEST_F(PasswordTest, CancelEndsLikeAFailedExtraction) {
    const auto dialog = openLocked();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->goBack());
    dialog->openTapped("geheim");
    dialog->cancelTapped();
    settle();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->message(), "Could not complete the operation.");
    EXPECT_TRUE(alert->reason().contains("password")) << alert->reason().toStdString();
    EXPECT_FALSE(results());
    EXPECT_EQ(eventNames(), QStringList{"failed_to_unzip"});
}

// Nothing on the screen, and never anything to whoever asks the toolkit for it.
TEST_F(PasswordTest, TheFieldShowsNothingUntilItIsTold) {
    const auto dialog = openLocked();
    ASSERT_TRUE(dialog);
    auto* const field = outlet<QQuickItem>(dialog->view(), "passwordField");
    QMetaObject::invokeMethod(field, "insert", Q_ARG(int, 0), Q_ARG(QString, "geheim"));
    EXPECT_FALSE(field->property("displayText").toString().contains("geheim"));
    field->setProperty("isShown", true);
    EXPECT_EQ(field->property("displayText"), "geheim");
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(field);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), "Password");
    EXPECT_TRUE(told->state().passwordEdit);
    EXPECT_EQ(told->text(QAccessible::Value), QString(6, QChar(0x2022)));
    EXPECT_EQ(told->textInterface(), nullptr);
}

// An archive that cannot be opened says only while it is rescued that it is locked.
TEST_F(PasswordTest, ARescueAsksForThePasswordToo) {
    const auto dialog = openLocked();
    dialog->cancelTapped();
    settle();
    presented<UIAlertController>()->choose(0);
    settle();
    std::vector<std::uint8_t> bytes = readFile(folder / "locked.zip");
    bytes.resize(bytes.size() - 30);
    writeFile(folder / "cut.zip", bytes);
    home_->didConfirmUnzip(fileUrl(folder / "cut.zip"));
    settle();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    alert->chooseRemedy();
    settle();
    const auto asked = presented<PasswordViewController>();
    ASSERT_TRUE(asked);
    asked->openTapped("falsch");
    settle();
    EXPECT_FALSE(wrongLine(*asked).isEmpty());
    asked->openTapped("geheim");
    settle();
    EXPECT_FALSE(presented<PasswordViewController>());
    ASSERT_TRUE(results());
    EXPECT_EQ(readText(*localPath(results()->urls().first())), "secret");
    EXPECT_TRUE(home_->hud()->isHidden());
    EXPECT_EQ(eventNames().count("failed_to_unzip"), 2);
}

}  // namespace
}  // namespace pellumar::test
