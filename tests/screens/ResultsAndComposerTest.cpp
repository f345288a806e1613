#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"
#include "platform/sharing/ActivityType.h"
#include "screens/FileTableViewCell.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

class ArchiveScreensTest : public ScreenFixture {
  protected:
    template <typename Screen, typename... Arguments>
    std::shared_ptr<Screen> push(Arguments&&... arguments) {
        home_ = showHome();
        auto screen = makeController<Screen>(services, std::forward<Arguments>(arguments)...);
        stack()->pushViewController(screen, true);
        settle();
        return screen;
    }

    QUrl file(const std::string& name) {
        writeFile(folder / name, "content of " + name);
        return fileUrl(folder / name);
    }

    // Answers the title alert.
    std::shared_ptr<ZipViewController> compose(const QString& title, const QList<QUrl>& urls) {
        auto composer = push<ZipViewController>();
        composer->documentPickerDidPickDocuments(urls);
        const auto alert = presented<UIAlertController>();
        EXPECT_TRUE(alert);
        alert->setText(title);
        alert->choose(0);
        settle();
        return composer;
    }

  private:
    std::shared_ptr<ViewController> home_;
};

TEST_F(ArchiveScreensTest, CellsFollowTheRowsTheyShow) {
    const auto results = push<UnzipViewController>(QList<QUrl>{file("a.txt"), file("b")});
    auto* const table = outlet<UITableView>(results->view(), "tableView");
    const auto cell =
        std::dynamic_pointer_cast<FileTableViewCell>(results->cellForRow(*table, {0, 1}));
    ASSERT_TRUE(cell);
    settle();
    EXPECT_EQ(outlet<QQuickItem>(cell->view(), "titleLabel")->property("text"), "b");
    EXPECT_EQ(cell->iconName(), "file");
    EXPECT_EQ(cell->detail(), "12 bytes");
    cell->configure(results->urls().first(), {0, 0});
    EXPECT_EQ(cell->iconName(), "text");
    cell->shareTapped();
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->activityItems(), QList<QUrl>{results->urls().first()});
    EXPECT_EQ(sheet->excludedActivityTypes(),
              (QStringList{activity::kAssignToContact, activity::kSaveToCameraRoll}));
    sheet->cancelTapped();
    settle();
    EXPECT_FALSE(flag(settings.didRequestKey()));
}

TEST_F(ArchiveScreensTest, OnlyRowsInSightHaveCells) {
    QList<QUrl> urls;
    for (int i = 0; i < 100'000; ++i) {
        urls.append(QUrl::fromLocalFile("/nowhere/" + QString::number(i)));
    }
    const auto results = push<UnzipViewController>(urls);
    const auto* const table = outlet<UITableView>(results->view(), "tableView");
    EXPECT_EQ(table->rowCount(), 100'000);
    EXPECT_GT(table->cellCount(), 4U);
    EXPECT_LT(table->cellCount(), 40U);
}

TEST_F(ArchiveScreensTest, SharingAllAsksForARatingOnceHoweverItEnds) {
    const auto results = push<UnzipViewController>(QList<QUrl>{file("a.txt")});
    for (int i = 0; i < 2; ++i) {
        results->shareAll();
        presented<UIActivityViewController>()->cancelTapped();
        settle();
    }
    EXPECT_EQ(review.requests, 1);
    EXPECT_TRUE(flag(settings.didRequestKey()));
}

TEST_F(ArchiveScreensTest, TitleLosesEveryZipAndTheArchiveIsShared) {
    const auto composer = compose("my.zipper.zip", {file("a.txt")});
    EXPECT_TRUE(composer->hud()->isDeterminate());
    EXPECT_EQ(composer->hud()->label(), "Compressing files");
    EXPECT_TRUE(composer->hud()->isHidden());
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->activityItems().first().fileName(), "myper.zip");
    sheet->cancelTapped();
    settle();
    EXPECT_EQ(review.requests, 1);
}

TEST_F(ArchiveScreensTest, FailureLeavesTheOverlayAndAWayOut) {
    const auto composer = compose("x", {fileUrl(folder / "does not exist")});
    ASSERT_TRUE(presented<UIAlertController>());
    EXPECT_FALSE(composer->hud()->isHidden());
    presented<UIAlertController>()->choose(0);
    EXPECT_TRUE(window.topViewController()->goBack());
    EXPECT_EQ(stack()->viewControllers().size(), 1U);
}

TEST_F(ArchiveScreensTest, CancelledTitleStartsNothing) {
    const auto composer = push<ZipViewController>();
    composer->documentPickerDidPickDocuments({});
    EXPECT_FALSE(presented<UIAlertController>());
    composer->askTitleForFiles({file("a.txt")});
    presented<UIAlertController>()->goBack();
    settle();
    EXPECT_FALSE(composer->hud());
}

}  // namespace
}  // namespace pellumar::test
