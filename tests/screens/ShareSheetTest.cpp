#include <algorithm>
#include <filesystem>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/kit/Notice.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/ItemSaving.h"
#include "platform/sharing/KeptEdits.h"
#include "screens/UnzipViewController.h"
#include "support/FileContents.h"
#include "support/stoppable/StoppableFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

const QString kOther = QStringLiteral("org.pellumar.test.other");

class ShareSheetTest : public ScreenFixture {
  protected:
    // What a sheet has said at its end.
    struct End {
        int times = 0;
        std::optional<QString> activityType;
        bool isCompleted = false;
        std::optional<QList<QUrl>> returnedItems;
        std::optional<QString> error;
    };

    ShareSheetTest() : home(showHome()) {
        fs::create_directory(folder / "target");
        targets.push_back({.activityType = kOther,
                           .title = "Other",
                           .iconName = "open",
                           .perform = [this](const auto& urls, const auto& done) {
                               given = urls;
                               done({.isCompleted = true});
                           }});
    }

    QUrl file(const std::string& name) {
        writeFile(folder / name, "content of " + name);
        return fileUrl(folder / name);
    }
    [[nodiscard]] std::shared_ptr<UIActivityViewController> share(const QList<QUrl>& urls) {
        auto sheet = makeController<UIActivityViewController>(services.ui, services.sharing, urls);
        sheet->setCompletionWithItemsHandler([this](const std::optional<QString>& type,
                                                    bool isCompleted,
                                                    const std::optional<QList<QUrl>>& items,
                                                    const std::optional<QString>& error) {
            end = {end.times + 1, type, isCompleted, items, error};
        });
        home->present(sheet, true);
        return sheet;
    }
    // Chooses "Save to…" of a sheet and then a folder; it is not saved yet when this returns.
    void saveTo(const fs::path& chosen) {
        settle();
        presented<UIActivityViewController>()->targetTapped(0);
        chooseFolder(chosen);
    }
    void chooseFolder(const fs::path& chosen) {
        const auto picker = presented<UIDocumentPickerViewController>();
        ASSERT_TRUE(picker);
        picker->model()->setFolder(chosen);
        settle();
        picker->confirmTapped();
        mainQueue.runAll();
    }
    [[nodiscard]] std::vector<std::string> namesIn(const std::string& name) const {
        std::vector<std::string> names;
        for (const auto& each : fs::directory_iterator(folder / name)) {
            names.push_back(each.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    [[nodiscard]] QString said() const {
        const Notice* const notice = Notice::shownIn(window);
        return notice == nullptr ? QString() : notice->text();
    }

    std::shared_ptr<ViewController> home;
    // What another application was given.
    QList<QUrl> given;
    End end;
};

TEST_F(ShareSheetTest, SavedFilesAreEqualNothingIsOverwrittenAndItIsSaid) {
    writeFile(folder / "target" / "a.txt", "older");
    const QUrl source = file("a.txt");
    fs::permissions(folder / "a.txt", fs::perms(0444));
    const auto sheet = share({source, file("b.txt")});
    saveTo(folder / "target");
    settle();
    EXPECT_FALSE(presented<UIActivityViewController>());
    EXPECT_EQ(readText(folder / "target" / "a.txt"), "older");
    EXPECT_EQ(readText(folder / "target" / "a (2).txt"), "content of a.txt");
    EXPECT_EQ(fs::status(folder / "target" / "a (2).txt").permissions(), fs::perms(0644));
    EXPECT_EQ(namesIn("target"), (std::vector<std::string>{"a (2).txt", "a.txt", "b.txt"}));
    EXPECT_EQ(said(), "Saved 2 files to target");
    EXPECT_EQ(end.times, 1);
    EXPECT_EQ(end.activityType, QString(activity::kSaveTo));
    EXPECT_TRUE(end.isCompleted);
    EXPECT_EQ(end.returnedItems,
              (QList<QUrl>{fileUrl(folder / "target" / "a (2).txt"),
                           fileUrl(folder / "target" / "b.txt")}));
    EXPECT_FALSE(end.error);
}

TEST_F(ShareSheetTest, SavingThatFailsLeavesNothingAndIsReportedWhenTheSheetCloses) {
    const auto sheet = share({file("a.txt"), file("b.txt")});
    settle();
    fs::remove(folder / "b.txt");
    saveTo(folder / "target");
    settle();
    EXPECT_EQ(presented<UIActivityViewController>(), sheet);
    EXPECT_EQ(sheet->failure(), "b.txt is no longer there");
    EXPECT_EQ(namesIn("target"), std::vector<std::string>());
    sheet->cancelTapped();
    sheet->cancelTapped();
    settle();
    EXPECT_EQ(end.times, 1);
    EXPECT_EQ(end.activityType, QString(activity::kSaveTo));
    EXPECT_FALSE(end.isCompleted);
    EXPECT_FALSE(end.returnedItems);
    EXPECT_EQ(end.error, "b.txt is no longer there");
    EXPECT_EQ(said(), QString());
}

TEST_F(ShareSheetTest, EscapeInTheMiddleOfSavingTakesBackWhatItLeft) {
    writeFile(folder / "target" / "a.txt", "older");
    const auto sheet = share({file("a.txt"), file("b.txt")});
    saveTo(folder / "target");
    // Only now, when the work has been given to the background, and has not begun.
    EXPECT_TRUE(window.topViewController()->goBack());
    settle();
    EXPECT_FALSE(presented<UIActivityViewController>());
    EXPECT_EQ(namesIn("target"), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(readText(folder / "target" / "a.txt"), "older");
    EXPECT_EQ(said(), QString());
    EXPECT_EQ(end.times, 1);
    EXPECT_FALSE(end.isCompleted);
    EXPECT_FALSE(end.error);
}

TEST_F(ShareSheetTest, NoFolderChosenIsNoEnd) {
    const auto sheet = share({file("a.txt")});
    settle();
    sheet->targetTapped(0);
    presented<UIDocumentPickerViewController>()->cancelTapped();
    settle();
    EXPECT_EQ(presented<UIActivityViewController>(), sheet);
    EXPECT_EQ(end.times, 0);
    // And the other ways are still there.
    sheet->targetTapped(1);
    settle();
    EXPECT_EQ(end.activityType, kOther);
    EXPECT_TRUE(end.isCompleted);
    EXPECT_FALSE(end.returnedItems);
}

TEST_F(ShareSheetTest, OnlyWhatIsThereIsOffered) {
    const auto some = share({fileUrl(folder / "gone.txt"), file("a.txt")});
    settle();
    EXPECT_EQ(some->heading(), "a.txt");
    EXPECT_EQ(some->detail(), "16 bytes, 1 more no longer there");
    some->targetTapped(1);
    settle();
    ASSERT_EQ(given.size(), 1);
    EXPECT_EQ(given.first().fileName(), "a.txt");

    const auto none = share({QUrl("https://host.example/a.txt")});
    settle();
    EXPECT_EQ(none->offeredActivityTypes(), QStringList());
    EXPECT_EQ(none->detail(), "This file is no longer there.");
    none->targetTapped(0);
    settle();
    EXPECT_EQ(presented<UIActivityViewController>(), none);
}

TEST_F(ShareSheetTest, WhatWasSharedOutlivesTheReturnHome) {
    fileSystem.createFolders();
    const auto results = makeController<UnzipViewController>(
        services, QList<QUrl>{fileUrl(folder / "Documents/outputs/zipOutputs/a.txt")});
    stack()->pushViewController(results, true);
    settle();
    const QUrl extracted = file("Documents/outputs/zipOutputs/a.txt");
    results->shareFile({0, 0});
    settle();
    presented<UIActivityViewController>()->targetTapped(1);
    settle();
    EXPECT_FALSE(presented<UIActivityViewController>());
    stack()->popViewController(true);
    settle();
    EXPECT_FALSE(fs::exists(*localPath(extracted)));
    ASSERT_EQ(given.size(), 1);
    EXPECT_EQ(readText(*localPath(given.first())), "content of Documents/outputs/zipOutputs/a.txt");
}

// The user opens a file elsewhere, changes it, and starts the application again.
TEST_F(ShareSheetTest, WhatWasChangedElsewhereIsSaidAtTheNextStart) {
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", folder.path().c_str());
    const SharedItems earlier(folder / "Shared");
    for (const char* name : {"a.txt", "b.txt", "c.txt", "d.txt"}) {
        writeFile(*localPath(earlier.keep({file(name)})->first()), "changed");
    }
    KeptEdits::recover(sharedItems, services.documents, window);
    settle();
    qputenv("HOME", before);
    ASSERT_NE(Notice::shownIn(window), nullptr);
    EXPECT_TRUE(said().startsWith("You changed 4 files in other applications: "))
        << qPrintable(said());
    EXPECT_TRUE(said().endsWith(", …. They are kept in Documents/Pellumar Zip."))
        << qPrintable(said());
    EXPECT_EQ(namesIn("Documents/Pellumar Zip"),
              (std::vector<std::string>{"a.txt", "b.txt", "c.txt", "d.txt"}));
    EXPECT_EQ(KeptEdits::text({fileUrl(KeptEdits::standardFolder() / "a.txt")}),
              "You changed a.txt in another application. It is kept in Documents/Pellumar Zip.");
}

// Saving all from a screen of results, without a sheet.
TEST_F(ShareSheetTest, SavesAllIntoANewFolderOfItsOwn) {
    fs::create_directory(folder / "target" / "Holiday");
    std::optional<ItemSaving::Outcome> outcome;
    const auto saving =
        ItemSaving::start(*home,
                          services.documents,
                          {.items = {file("a.txt"), file("b.txt")}, .newFolder = "Holiday"},
                          [&outcome](const ItemSaving::Outcome& result) { outcome = result; });
    chooseFolder(folder / "target");
    settle();
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->saved.size(), 2);
    EXPECT_EQ(namesIn("target"), (std::vector<std::string>{"Holiday", "Holiday (2)"}));
    EXPECT_EQ(readText(*localPath(outcome->saved.last())), "content of b.txt");
    EXPECT_EQ(said(), "Saved 2 files to Holiday (2)");
    EXPECT_TRUE(home->view().isEnabled());
}

// A folder on a network whose server does not answer: the sheet comes, and can be closed.
TEST_F(ShareSheetTest, FolderThatHangsDoesNotHoldUpTheWindow) {
    if (const std::string reason = StoppableFolder::whyNot(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    fs::create_directory(folder / "source");
    fs::create_directory(folder / "network");
    writeFile(folder / "source" / "a.txt", "content");
    const StoppableFolder network(folder / "source", folder / "network");
    const QList<QUrl> items(200, fileUrl(network.path() / "a.txt"));
    GlobalDispatchQueue background;
    MainDispatchQueue onMain;
    FolderQueue ownFolders(background);
    const DocumentServices documents{inbox, onMain, background, ownFolders, memory};
    const SharingServices sharing{documents, targets, sharedItems};
    network.stop();
    const auto start = std::chrono::steady_clock::now();
    const auto sheet = makeController<UIActivityViewController>(services.ui, sharing, items);
    home->present(sheet, true);
    EXPECT_FALSE(waitUntil([&] { return !sheet->offeredActivityTypes().isEmpty(); },
                           std::chrono::milliseconds(200)));
    EXPECT_EQ(sheet->heading(), "200 items");
    EXPECT_EQ(sheet->detail(), "One moment…");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    network.goOn();
    EXPECT_TRUE(waitUntil([&] { return sheet->offeredActivityTypes().size() == 2; }));
    EXPECT_EQ(sheet->detail(), "1.4 kB");
}

}  // namespace
}  // namespace pellumar::test
