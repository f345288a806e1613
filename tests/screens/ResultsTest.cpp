#include <QKeyEvent>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"
#include "platform/sharing/ActivityType.h"
#include "screens/FileTableViewCell.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"
#include "support/ZipBuilder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

// The results of an archive, by the road from the home screen.
class ResultsTest : public ScreenFixture {
  protected:
    ResultsTest() : home_(showHome()) {
        targets.push_back({.activityType = activity::kOpenWith,
                           .title = "Open",
                           .iconName = "open",
                           .perform = [this](const auto& urls, const auto& done) {
                               opened.append(urls);
                               answer = done;
                           }});
        fs::create_directory(folder / "target");
    }

    std::shared_ptr<UnzipViewController> unzip(const std::vector<std::string>& names) {
        ZipBuilder builder;
        for (const std::string& name : names) {
            builder.file(name, "content of " + name);
        }
        builder.writeTo(folder / "Holiday.zip");
        home_->didConfirmUnzip(fileUrl(folder / "Holiday.zip"));
        settle();
        auto results = std::dynamic_pointer_cast<UnzipViewController>(stack()->topViewController());
        EXPECT_TRUE(results);
        return results;
    }
    [[nodiscard]] bool isAtHome() const { return stack()->viewControllers().size() == 1; }
    void press(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        // Not so soon after the last one that it passes for the same.
        time_ += 1000;
        press.setTimestamp(time_);
        QCoreApplication::sendEvent(&window, &press);
    }
    // Answers the picker of a folder, if there is one; copying has not begun.
    void chooseTarget() {
        const auto picker = presented<UIDocumentPickerViewController>();
        ASSERT_TRUE(picker);
        picker->model()->setFolder(folder / "target");
        settle();
        picker->confirmTapped();
    }
    void saveToTarget() {
        chooseTarget();
        settle();
    }
    // What of the window's list the keyboard is in.
    [[nodiscard]] QString focusedRow() const {
        const QQuickItem* const item = window.activeFocusItem();
        return item == nullptr ? QString() : item->property("text").toString();
    }

    // What was to be opened, and who waits for how that went.
    QList<QUrl> opened;
    ShareTarget::Done answer;

  private:
    std::shared_ptr<ViewController> home_;
    quint64 time_ = 0;
};

TEST_F(ResultsTest, SayWhatTheyAreAndSaveAllWithWhatIsHidden) {
    const auto results = unzip({"a.txt", "folder/b.txt", ".profile"});
    EXPECT_EQ(results->archiveName(), "Holiday.zip");
    EXPECT_EQ(results->listedCount(), 2);
    EXPECT_EQ(results->hiddenCount(), 1);
    EXPECT_EQ(results->detail(), "2 items, 58 bytes");
    results->saveAll();
    saveToTarget();
    EXPECT_EQ(results->savedTo(), "Holiday");
    EXPECT_EQ(readText(folder / "target/Holiday/folder/b.txt"), "content of folder/b.txt");
    EXPECT_EQ(readText(folder / "target/Holiday/.profile"), "content of .profile");
    EXPECT_TRUE(results->mayGoBack());
}

// It said "There was nothing in this archive".
TEST_F(ResultsTest, HiddenFilesAloneAreNotNothing) {
    const auto results = unzip({".a", ".b"});
    EXPECT_EQ(results->listedCount(), 0);
    EXPECT_EQ(results->hiddenCount(), 2);
    EXPECT_EQ(results->detail(), "2 hidden items, 26 bytes");
    const auto* const button = results->view().findChild<QQuickItem*>("saveAllButton");
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->isVisible());
    stack()->backTapped();
    EXPECT_TRUE(presented<UIAlertController>());
}

TEST_F(ResultsTest, AreAskedAboutOnceBeforeTheyGoHoweverTheUserLeaves) {
    const std::vector<std::function<void()>> ways = {[this] { stack()->backTapped(); },
                                                     [this] { press(Qt::Key_Escape); },
                                                     [this] { press(Qt::Key_Back); }};
    for (const auto& leave : ways) {
        static_cast<void>(unzip({"a.txt"}));
        leave();
        const auto alert = presented<UIAlertController>();
        ASSERT_TRUE(alert);
        EXPECT_EQ(alert->alertTitle(), "Nothing was kept");
        press(Qt::Key_Escape);  // pressed once too often
        EXPECT_EQ(presented<UIAlertController>(), alert);
        alert->choose(2);
        settle();
        EXPECT_FALSE(isAtHome());
        leave();
        ASSERT_TRUE(presented<UIAlertController>()) << "who stays was asked nothing";
        presented<UIAlertController>()->choose(1);
        settle();
        EXPECT_TRUE(isAtHome());
    }
    static_cast<void>(unzip({"a.txt"}));
    stack()->backTapped();
    presented<UIAlertController>()->choose(0);
    presented<UIDocumentPickerViewController>()->cancelTapped();
    settle();
    EXPECT_FALSE(isAtHome());
    stack()->backTapped();
    settle();
    EXPECT_TRUE(isAtHome()) << "asked twice";
}

// An extraction that ran on behind the question put its results below that.
TEST_F(ResultsTest, LeavingTakesNoOtherResultsAway) {
    const auto results = unzip({"a.txt"});
    stack()->backTapped();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    const auto later = makeController<UnzipViewController>(services, results->urls());
    stack()->pushViewController(later, true);
    alert->choose(1);
    settle();
    EXPECT_EQ(stack()->topViewController(), later);
    EXPECT_EQ(later->archiveBelow(), "Holiday.zip");
    EXPECT_EQ(results->archiveBelow(), QString());
}

TEST_F(ResultsTest, AStepBackWhileTheyAreSavedStopsThatAndOtherKeysDoNothing) {
    const auto results = unzip({"a.txt"});
    results->saveAll();
    chooseTarget();
    press(Qt::Key_A, "a", Qt::ControlModifier);
    EXPECT_FALSE(presented<UIActivityViewController>());
    press(Qt::Key_Escape);
    EXPECT_EQ(window.topViewController(), window.rootViewController());
    EXPECT_FALSE(isAtHome());
    settle();
    EXPECT_TRUE(fs::is_empty(folder / "target"));
    EXPECT_EQ(results->savedTo(), QString());
    press(Qt::Key_Escape);
    ASSERT_TRUE(presented<UIAlertController>()) << "nothing was kept";
}

TEST_F(ResultsTest, GoWithoutAWordWhenSomethingOfThemWasKeptOrThereIsNothing) {
    static_cast<void>(unzip({}));
    stack()->backTapped();
    settle();
    EXPECT_TRUE(isAtHome());
    const auto results = unzip({"a.txt", "b.txt"});
    results->shareFile({0, 0});
    settle();
    presented<UIActivityViewController>()->targetTapped(0);
    settle();
    saveToTarget();
    EXPECT_TRUE(fs::exists(folder / "target/a.txt"));
    stack()->backTapped();
    settle();
    EXPECT_TRUE(isAtHome());
}

TEST_F(ResultsTest, ATapOpensARowOnceAndSaysWhyItCouldNot) {
    const auto results = unzip({"a.txt", "b.txt"});
    results->openFile({0, 1});
    results->openFile({0, 1});
    settle();
    results->openFile({0, 1});
    settle();
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(readText(*localPath(opened.first())), "content of b.txt");
    EXPECT_NE(opened.first(), results->urls()[1]) << "goes with the list";
    answer({.error = "No application opens this file"});
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->message(), "No application opens this file");
    alert->choose(0);
    // Whether or not anybody has answered: a chooser may stay open.
    for (const qsizetype count : {2, 3}) {
        EXPECT_TRUE(waitUntil([&] {
            results->openFile({0, 0});
            return opened.size() == count;
        }));
    }
    EXPECT_EQ(results->rowOf("a", -1), 0);
}

TEST_F(ResultsTest, KeysLeadThroughTheRows) {
    std::vector<std::string> names;
    for (int i = 10; i < 60; ++i) {
        names.push_back(std::to_string(i));
    }
    names.insert(names.end(), {"beach", "Bear", "car"});
    const auto results = unzip(names);
    EXPECT_EQ(focusedRow(), "Open 10");
    // The header has grown meanwhile: the sizes have come.
    const auto* const rows = results->view().findChild<QQuickItem*>("rows");
    EXPECT_EQ(rows->property("contentY"), rows->property("originY"));
    const std::vector<std::pair<int, QString>> steps = {{Qt::Key_Down, "Open 11"},
                                                        {Qt::Key_End, "Open car"},
                                                        {Qt::Key_Down, "Open car"},
                                                        {Qt::Key_Up, "Open Bear"},
                                                        {Qt::Key_Home, "Open 10"}};
    for (const auto& [key, row] : steps) {
        press(key);
        EXPECT_EQ(focusedRow(), row);
    }
    press(Qt::Key_PageDown);
    EXPECT_GT(focusedRow(), "Open 12");
    press(Qt::Key_PageUp);
    EXPECT_EQ(focusedRow(), "Open 10");
    for (const char* const letter : {"b", "e", "a", "r"}) {
        press(0, letter);
    }
    EXPECT_EQ(focusedRow(), "Open Bear");
    EXPECT_TRUE(window.activeFocusItem()->property("visualFocus").toBool());
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(ResultsTest, ANewArchiveThatNobodyKeptIsAskedAboutOnce) {
    const auto composer = makeController<ZipViewController>(services);
    stack()->pushViewController(composer, true);
    writeFile(folder / "a.txt", "a");
    composer->askTitleForFiles({fileUrl(folder / "a.txt")});
    presented<UIAlertController>()->setText("Trip");
    presented<UIAlertController>()->choose(0);
    settle();
    presented<UIActivityViewController>()->cancelTapped();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->alertTitle(), "This archive was not kept");
    alert->choose(0);
    saveToTarget();
    EXPECT_TRUE(fs::exists(folder / "target/Trip.zip"));
    EXPECT_FALSE(presented<UIAlertController>());
    EXPECT_EQ(review.requests, 1);
}

}  // namespace
}  // namespace pellumar::test
