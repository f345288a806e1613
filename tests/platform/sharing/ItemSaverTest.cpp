#include "platform/sharing/ItemSaver.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/FileUrl.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class ItemSaverTest : public testing::Test {
  protected:
    ItemSaverTest() {
        fs::create_directories(folder / "source" / "tree" / "deep");
        fs::create_directory(folder / "target");
        writeFile(folder / "source" / "tree" / "deep" / "leaf", "leaf");
        writeFile(folder / "source" / "a.txt", "new");
        writeFile(folder / "target" / "a.txt", "older");
    }
    // All that is below the target, hidden or not, with the content of the files.
    [[nodiscard]] std::map<std::string, std::string> target() const {
        std::map<std::string, std::string> found;
        for (const auto& each : fs::recursive_directory_iterator(folder / "target")) {
            found[each.path().lexically_relative(folder / "target")] =
                each.is_directory() ? "folder" : readText(each.path());
        }
        return found;
    }
    [[nodiscard]] QList<QUrl> items() const {
        return {fileUrl(folder / "source" / "tree" / ""),
                fileUrl(folder / "source" / "a.txt"),
                fileUrl(folder / "source" / "a.txt")};
    }

    TemporaryFolder folder;
};

TEST_F(ItemSaverTest, SavesFoldersAndNamesakesBesideWhatIsThere) {
    const auto saved =
        ItemSaver([] { return true; }, folder / "notes").save(items(), folder / "target");
    ASSERT_TRUE(saved);
    EXPECT_EQ(target(),
              (std::map<std::string, std::string>{{"a.txt", "older"},
                                                  {"a (2).txt", "new"},
                                                  {"a (3).txt", "new"},
                                                  {"tree", "folder"},
                                                  {"tree/deep", "folder"},
                                                  {"tree/deep/leaf", "leaf"}}));
    for (const QUrl& url : *saved) {
        EXPECT_TRUE(fs::exists(*localPath(url))) << url.toString().toStdString();
    }
}

TEST_F(ItemSaverTest, StoppedAtAnyMomentItLeavesTheFolderAsItWas) {
    const auto before = target();
    for (const QString& inner : {QString(), QString("Holiday")}) {
        int questions = 0;
        bool isSaved = false;
        for (int patience = 0; !isSaved; ++patience) {
            questions = 0;
            const ItemSaver saver([&] { return questions++ < patience; }, folder / "notes");
            const auto saved = saver.save(items(), folder / "target", inner);
            isSaved = saved.has_value();
            if (!isSaved) {
                EXPECT_TRUE(saved.error().isCancelled()) << saved.error().reason.message();
                EXPECT_EQ(target(), before) << patience;
            }
        }
        EXPECT_GT(questions, 5);
        EXPECT_NE(target(), before);
        for (const auto& each : target()) {
            if (before.count(each.first) == 0) {
                fs::remove_all(folder / "target" / each.first);
            }
        }
    }
}

TEST_F(ItemSaverTest, FailureAtTheLastItemLeavesNothingOfTheOthers) {
    const auto before = target();
    fs::permissions(folder / "source" / "a.txt", fs::perms(0444));
    QList<QUrl> some = items();
    some.append(fileUrl(folder / "not there"));
    const auto saved =
        ItemSaver([] { return true; }, folder / "notes").save(some, folder / "target");
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().path, folder / "not there");
    EXPECT_EQ(target(), before);
}

TEST_F(ItemSaverTest, ANewFolderIsNamedAsToldAndLeadsNowhereElse) {
    const ItemSaver saver([] { return true; }, folder / "notes");
    ASSERT_TRUE(saver.save(items(), folder / "target", "../up/and away"));
    ASSERT_TRUE(saver.save(items(), folder / "target", ".."));
    EXPECT_EQ(readText(folder / "target" / ".._up_and away" / "a.txt"), "new");
    EXPECT_EQ(readText(folder / "target" / "_" / "a (2).txt"), "new");
    EXPECT_FALSE(fs::exists(folder / "up"));
}

}  // namespace
}  // namespace pellumar::test
