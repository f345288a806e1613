#include "platform/sharing/SharedItems.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <string>

#include "platform/FileUrl.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class SharedItemsTest : public testing::Test {
  protected:
    QUrl file(const std::string& name) {
        fs::create_directories((folder / name).parent_path());
        writeFile(folder / name, "content of " + name);
        return fileUrl(folder / name);
    }
    // Where it was handed out by a run that has ended since, or was killed.
    fs::path handOut(const QList<QUrl>& items) {
        const auto kept = SharedItems(folder / "Shared").keep(items);
        EXPECT_TRUE(kept);
        return kept ? *localPath(kept->first()) : fs::path();
    }
    // What the next start finds, by name and content.
    [[nodiscard]] std::map<std::string, std::string> recover() {
        std::map<std::string, std::string> found;
        for (const QUrl& url : SharedItems(folder / "Shared").recoverChanged(folder / "Kept")) {
            found[localPath(url)->filename()] = readText(*localPath(url));
        }
        return found;
    }
    // As most editors save.
    static void replace(const fs::path& file, const std::string& content) {
        writeFile(file.string() + ".new", content);
        fs::rename(file.string() + ".new", file);
    }
    static void letADayPass(const fs::path& handedOut) {
        fs::last_write_time(handedOut.parent_path().parent_path() / "note",
                            fs::file_time_type::clock::now() - std::chrono::hours(25));
    }
    using Found = std::map<std::string, std::string>;

    TemporaryFolder folder;
};

TEST_F(SharedItemsTest, WhatIsHandedOnOutlivesWhereItWas) {
    fs::create_directories(folder / "tree/deep");
    writeFile(folder / "tree/deep/file", "leaf");
    fs::create_symlink("deep/file", folder / "tree/link");
    fs::create_symlink("caf\xe9.zip", folder / "alone");
    file("caf\xe9.zip");
    const QUrl foreign("https://host.example/a.txt");
    const SharedItems shared(folder / "Shared");
    const auto kept = shared.keep({fileUrl(folder / "caf\xe9.zip"),
                                   fileUrl(folder / "tree/"),
                                   foreign,
                                   fileUrl(folder / "alone"),
                                   file("other/caf\xe9.zip")});
    ASSERT_TRUE(kept);
    ASSERT_EQ(kept->size(), 5);
    EXPECT_EQ(kept->at(2), foreign);
    fs::remove(folder / "caf\xe9.zip");
    fs::remove(folder / "alone");
    fs::remove_all(folder / "tree");
    // Its own run's stay.
    EXPECT_EQ(shared.recoverChanged(folder / "Kept"), QList<QUrl>());
    const fs::path first = *localPath(kept->at(0));
    EXPECT_EQ(readText(first), "content of caf\xe9.zip");
    EXPECT_EQ(first.filename(), "caf\xe9.zip");
    EXPECT_EQ(readText(*localPath(kept->at(1)) / "link"), "leaf");
    EXPECT_EQ(readText(*localPath(kept->at(3))), "content of caf\xe9.zip");
    EXPECT_EQ(readText(*localPath(kept->at(4))), "content of other/caf\xe9.zip");
    // One folder for a file manager to show, but for namesakes.
    EXPECT_EQ(localPath(kept->at(1))->parent_path(), first.parent_path());
    EXPECT_NE(localPath(kept->at(4))->parent_path(), first.parent_path());
    EXPECT_FALSE(fs::exists(folder / "Kept"));
}

// The edits were in a second name that the next start removed.
TEST_F(SharedItemsTest, WhatWasChangedElsewhereIsKeptHoweverItWasSaved) {
    const fs::path inPlace = handOut({file("in place.txt")});
    const fs::path renamed = handOut({file("renamed.txt")});
    const fs::path unchanged = handOut({file("unchanged.txt"), file("second.txt")});
    file("tree/deep/leaf.txt");
    const fs::path tree = handOut({fileUrl(folder / "tree")});
    writeFile(inPlace, "edited");
    replace(renamed, "content OF renamed.txt");
    replace(tree / "deep/leaf.txt", "edited leaf");
    writeFile(tree / "deep/export.pdf", "beside it");
    writeFile(tree / "deep/.~lock.leaf.txt#", "lock");
    writeFile(tree / "deep/leaf.txt~", "backup");
    fs::create_directory(folder / "Kept");
    writeFile(folder / "Kept" / "renamed.txt", "the user's own");
    fs::create_directory(folder / "empty");
    writeFile(handOut({fileUrl(folder / "empty")}) / "new.txt", "put there");
    EXPECT_EQ(recover(),
              (Found{{"in place.txt", "edited"},
                     {"new.txt", "put there"},
                     {"renamed (2).txt", "content OF renamed.txt"},
                     {"leaf.txt", "edited leaf"},
                     {"export.pdf", "beside it"}}));
    EXPECT_EQ(readText(folder / "Kept" / "renamed.txt"), "the user's own");
    EXPECT_FALSE(fs::exists(unchanged));
    EXPECT_EQ(recover(), Found());
}

TEST_F(SharedItemsTest, WhatMayStillBeOpenElsewhereStaysForADay) {
    const fs::path open = handOut({file("open.txt")});
    EXPECT_EQ(recover(), Found());
    replace(open, "first");
    EXPECT_EQ(recover(), (Found{{"open.txt", "first"}}));
    replace(open, "second");
    EXPECT_EQ(recover(), (Found{{"open (2).txt", "second"}}));
    letADayPass(open);
    EXPECT_EQ(recover(), Found());
    EXPECT_FALSE(fs::exists(open));
    EXPECT_TRUE(fs::is_empty(folder / "Shared"));
}

TEST_F(SharedItemsTest, WhatCannotBeKeptNowIsKeptLater) {
    const fs::path changed = handOut({file("a.txt")});
    letADayPass(changed);
    replace(changed, "edited");
    writeFile(folder / "Kept", "in the way");
    EXPECT_EQ(recover(), Found());
    fs::remove(folder / "Kept");
    EXPECT_EQ(recover(), (Found{{"a.txt", "edited"}}));
}

// Two second names are one file: an edit in place is in both.
TEST_F(SharedItemsTest, WhatWasHandedOutTwiceIsKeptOnce) {
    const QUrl item = file("a.txt");
    const fs::path one = handOut({item});
    const fs::path other = handOut({item});
    ASSERT_TRUE(fs::equivalent(one, other));
    writeFile(one, "edited");
    EXPECT_EQ(recover(), (Found{{"a.txt", "edited"}}));
    EXPECT_EQ(recover(), Found());
    replace(other, "the other");
    EXPECT_EQ(recover(), (Found{{"a (2).txt", "the other"}}));
}

}  // namespace
}  // namespace pellumar::test
