#include "platform/documents/FolderModel.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <fstream>
#include <string>

#include "platform/FileUrl.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class FolderModelTest : public testing::Test {
  protected:
    void runAll() {
        backgroundQueue.runAll();
        mainQueue.runAll();
    }
    static QStringList names(const FolderModel& model) {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row) {
            names.append(model.data(model.index(row), FolderModel::kName).toString());
        }
        return names;
    }

    TemporaryFolder folder;
    ManualDispatchQueue mainQueue;
    ManualDispatchQueue backgroundQueue;
    FolderQueue folderQueue{backgroundQueue};
    PickedFiles picked;
};

TEST_F(FolderModelTest, ListsWhatCanBePickedAsPeopleOrderIt) {
    fs::create_directory(folder / "z folder");
    fs::create_directory(folder / ".hidden");
    for (const char* name : {"photo 10.ZIP", "Photo 9.zip", "äpfel.zip", "notes.txt", ".a.zip"}) {
        writeFile(folder / name, "text");
    }
    fs::create_symlink("nowhere", folder / "dangling.zip");
    FolderModel archives({"public.zip-archive"}, picked, mainQueue, folderQueue);
    archives.setFolder(folder.path());
    EXPECT_TRUE(archives.isLoading());
    runAll();
    EXPECT_FALSE(archives.isLoading());
    EXPECT_EQ(names(archives),
              (QStringList{"z folder", "äpfel.zip", "Photo 9.zip", "photo 10.ZIP"}));
    FolderModel items({"public.item"}, picked, mainQueue, folderQueue);
    items.setFolder(folder.path());
    runAll();
    EXPECT_EQ(items.rowCount(), 5);
    FolderModel folders({"public.folder"}, picked, mainQueue, folderQueue);
    folders.setFolder(folder.path());
    runAll();
    EXPECT_EQ(names(folders), QStringList{"z folder"});
}

TEST_F(FolderModelTest, KnowsArchivesByTheirContentsWhereTheNameTellsNothing) {
    for (const char* name : {"backup", "caf\xe9 2026-11", "letter.docx", "program.jar"}) {
        ZipBuilder().file("a.txt", "a").writeTo(folder / name);
    }
    writeFile(folder / "plain", "no archive");
    writeFile(folder / "nothing", "");
    FolderModel model({"public.zip-archive"}, picked, mainQueue, folderQueue);
    model.setFolder(folder.path());
    runAll();
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.path(0), folder / "backup");
    EXPECT_EQ(model.path(1), folder / "caf\xe9 2026-11");
}

TEST_F(FolderModelTest, PicksFilesByTheirExactNamesAcrossFolders) {
    fs::create_directory(folder / "inner");
    writeFile(folder / "caf\xe9.zip", "text");
    writeFile(folder / "b.zip", "text");
    writeFile(folder / "inner" / "b.zip", "text");
    FolderModel model({"public.item"}, picked, mainQueue, folderQueue);
    model.setFolder(folder.path());
    runAll();
    for (int row = -1; row <= model.rowCount(); ++row) {
        model.toggle(row);
    }
    model.setFolder(folder / "inner");
    runAll();
    EXPECT_EQ(model.data(model.index(0), FolderModel::kIsSelected), false);
    model.pickAll();
    EXPECT_EQ(model.data(model.index(0), FolderModel::kIsSelected), true);
    model.pickAll();
    const QUrl first = fileUrl(folder / "b.zip");
    const QUrl second = fileUrl(folder / "caf\xe9.zip");
    const QUrl third = fileUrl(folder / "inner" / "b.zip");
    EXPECT_EQ(picked.urls(), (QList<QUrl>{first, second, third}));
    picked.removeAt(1);
    picked.removeAt(7);
    model.toggle(0);
    EXPECT_EQ(picked.urls(), QList<QUrl>{first});
    model.setFolder(folder.path());
    runAll();
    EXPECT_EQ(model.data(model.index(model.rowOf("b.zip")), FolderModel::kIsSelected), true);
}

TEST_F(FolderModelTest, SaysWhatIsNotShownAndShowsWhatIsHidden) {
    FolderModel model({"public.zip-archive"}, picked, mainQueue, folderQueue);
    const auto list = [&](const std::vector<const char*>& files) {
        for (const char* const name : files) {
            writeFile(folder / name, "text");
        }
        model.setFolder(folder.path());
        runAll();
    };
    list({"a.zip"});
    EXPECT_EQ(model.notShown(), "");
    list({".b.zip", ".c.txt"});
    EXPECT_EQ(model.notShown(), "1 hidden item is not shown");
    list({"d.txt"});
    EXPECT_EQ(model.notShown(), "1 file of another kind and 1 hidden item are not shown");
    fs::create_directory(folder / ".e");
    list({"f.txt"});
    EXPECT_EQ(model.notShown(), "2 files of other kinds and 2 hidden items are not shown");
    model.showHidden();
    runAll();
    EXPECT_EQ(names(model), (QStringList{".e", ".b.zip", "a.zip"}));
    EXPECT_FALSE(model.hasHidden());
    EXPECT_EQ(model.notShown(), "2 files of other kinds are not shown");
}

TEST_F(FolderModelTest, FindsRowsByTheirFirstLetters) {
    for (const char* const name : {"Alpha", "beta 1", "Beta 2", "gamma"}) {
        writeFile(folder / name, "text");
    }
    FolderModel model({"public.item"}, picked, mainQueue, folderQueue);
    EXPECT_EQ(model.rowStartingWith("a", 0), -1);
    model.setFolder(folder.path());
    runAll();
    EXPECT_EQ(model.rowStartingWith("b", 0), 1);
    EXPECT_EQ(model.rowStartingWith("b", 2), 2);
    EXPECT_EQ(model.rowStartingWith("b", 3), 1) << "from the first on again";
    EXPECT_EQ(model.rowStartingWith("GAM", 4), 3);
    EXPECT_EQ(model.rowStartingWith("x", 0), -1);
}

TEST_F(FolderModelTest, TheLatestFolderIsTheOneShown) {
    fs::create_directory(folder / "inner");
    writeFile(folder / "inner" / "a.zip", "text");
    FolderModel model({"public.item"}, picked, mainQueue, folderQueue);
    model.setFolder(folder.path());
    model.setFolder(folder / "inner");
    runAll();
    EXPECT_EQ(names(model), QStringList{"a.zip"});
    model.setFolder(folder / "gone");
    runAll();
    EXPECT_TRUE(model.isUnreadable());
    {
        FolderModel brief({"public.item"}, picked, mainQueue, folderQueue);
        brief.setFolder(folder.path());
    }
    runAll();
}

// Each place to which links lead began the list anew when it answered, under the user's finger.
TEST_F(FolderModelTest, WhatLinksLeadToComesBetweenTheRowsThatAreThere) {
    for (const char* const name : {"b.zip", "d.zip"}) {
        writeFile(folder / name, "text");
    }
    for (const char* const name : {"a.zip", "c.zip", "e.zip"}) {
        fs::create_directory(folder / (name + std::string(" place")));
        writeFile(folder / (name + std::string(" place")) / "far", "text");
        fs::create_symlink(name + std::string(" place/far"), folder / name);
    }
    FolderModel model({"public.zip-archive"}, picked, mainQueue, folderQueue);
    model.setFolder(folder.path());
    QPersistentModelIndex last;
    int resets = 0;
    QObject::connect(&model, &FolderModel::rowsInserted, [&] {
        if (!last.isValid()) {
            last = model.index(model.rowCount() - 1);
        }
    });
    QObject::connect(&model, &FolderModel::modelReset, [&] { ++resets; });
    runAll();
    EXPECT_EQ(names(model).mid(3), (QStringList{"a.zip", "b.zip", "c.zip", "d.zip", "e.zip"}));
    EXPECT_EQ(last.row(), model.rowOf("d.zip"));
    EXPECT_EQ(resets, 0);

    // So many that each for itself would hold up the window.
    QStringList all;
    for (int i = 100; i < 400; ++i) {
        const std::string name = std::to_string(i) + ".zip";
        if (i % 2 == 0) {
            writeFile(folder / name, "text");
        } else {
            fs::create_symlink("a.zip place/far", folder / name);
        }
        all.append(QString::fromStdString(name));
    }
    model.setFolder(folder.path());
    runAll();
    EXPECT_EQ(names(model).mid(3, all.size()), all);
}

TEST_F(FolderModelTest, ManyFilesDoNotHoldUpTheWindow) {
    constexpr int kFiles = 30000;
    for (int i = 0; i < kFiles; ++i) {
        std::ofstream(folder / ("IMG_" + std::to_string(i) + ".jpg"));
    }
    FolderModel model({"public.item"}, picked, mainQueue, folderQueue);
    model.setFolder(folder.path());
    backgroundQueue.runAll();
    QElapsedTimer standstill;
    standstill.start();
    mainQueue.runAll();
    EXPECT_LT(standstill.elapsed(), 200);
    EXPECT_EQ(model.rowCount(), kFiles);
    EXPECT_EQ(model.data(model.index(kFiles - 1), FolderModel::kName), "IMG_29999.jpg");
}

}  // namespace
}  // namespace pellumar::test
