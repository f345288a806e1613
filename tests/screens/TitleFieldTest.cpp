#include <QKeyEvent>

#include "gui/ScreenFixture.h"
#include "platform/kit/UIAlertController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

// The title of a new archive as it is typed.
class TitleFieldTest : public ScreenFixture {
  protected:
    TitleFieldTest() : home_(showHome()), composer_(makeController<ZipViewController>(services)) {
        stack()->pushViewController(composer_, true);
        writeFile(folder / "a.txt", "a");
        composer_->askTitleForFiles(
            {QUrl::fromLocalFile(QString::fromStdString(folder / "a.txt"))});
        alert_ = presented<UIAlertController>();
        field_ = alert_->view().findChild<QQuickItem*>("textField");
        field_->forceActiveFocus();
    }

    void type(const QString& text, int key = 0) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &press);
    }
    [[nodiscard]] QString shown() const { return field_->property("text").toString(); }
    [[nodiscard]] const UIAlertController& alert() const { return *alert_; }
    [[nodiscard]] QQuickItem& view() const { return alert_->view(); }
    void save() { alert_->choose(0); }

  private:
    std::shared_ptr<ViewController> home_;
    std::shared_ptr<ZipViewController> composer_;
    std::shared_ptr<UIAlertController> alert_;
    QQuickItem* field_ = nullptr;
};

// A title with a slash names a folder that is not there: the sheet offered an archive of nothing.
TEST_F(TitleFieldTest, TakesNoSlashAndSaysSoUntilTheNextKey) {
    type("a");
    type("b");
    type({}, Qt::Key_Left);
    type("/");
    EXPECT_EQ(shown(), "ab");
    EXPECT_EQ(alert().hint(), "A title cannot have a slash in it.");
    type("x");  // the cursor is where it was
    EXPECT_EQ(shown(), "axb");
    EXPECT_EQ(alert().hint(), "");
    save();
    settle();
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(
        std::filesystem::exists(sheet->activityItems().first().toLocalFile().toStdString()));
}

TEST_F(TitleFieldTest, IsAsLongAsAFileNameAndEndsWithAWholeCharacter) {
    type(QString("ö").repeated(200));
    EXPECT_EQ(shown(), QString("ö").repeated(125));
    EXPECT_FALSE(alert().hint().isEmpty());
    save();
    settle();
    ASSERT_TRUE(presented<UIActivityViewController>());
    EXPECT_TRUE(
        std::filesystem::exists(folder / "Documents/outputs" / (shown().toStdString() + ".zip")));
}

// Behind a button, so that who wants none need not see it.
TEST_F(TitleFieldTest, APasswordMayBeAddedAndLocksTheArchive) {
    type("a");
    auto* const field = outlet<QQuickItem>(view(), "secretField");
    EXPECT_FALSE(field->isVisible());
    QMetaObject::invokeMethod(outlet<QQuickItem>(view(), "secretButton"), "clicked");
    EXPECT_TRUE(field->hasActiveFocus());
    for (const QChar letter : QString("geheim")) {
        type(letter);
    }
    EXPECT_FALSE(field->property("displayText").toString().contains("geheim"));
    save();
    settle();
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    const auto test = [&](const std::string& password) {
        return runProcess({"7zz",
                           "t",
                           "-p" + password,
                           sheet->activityItems().first().toLocalFile().toStdString()})
            .exitCode;
    };
    EXPECT_EQ(test("geheim"), 0);
    EXPECT_NE(test("falsch"), 0);
}

}  // namespace
}  // namespace pellumar::test
