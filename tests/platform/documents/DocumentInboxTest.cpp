#include "platform/documents/DocumentInbox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "platform/FileUrl.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class DocumentInboxTest : public testing::Test {
  protected:
    using Copies = tl::expected<QList<QUrl>, QString>;

    std::shared_ptr<DocumentInbox::Import> import(const QList<QUrl>& items) {
        return inbox.import(
            items,
            [this](double done) { progress.push_back(done); },
            [this](const Copies& result) { copies = result; });
    }
    void runAll() {
        backgroundQueue.runAll();
        mainQueue.runAll();
    }

    [[nodiscard]] std::vector<fs::path> copiedPaths() const {
        std::vector<fs::path> paths;
        for (const QUrl& url : **copies) {
            paths.push_back(localPath(url).value_or(fs::path()));
        }
        return paths;
    }

    TemporaryFolder folder;
    ManualDispatchQueue mainQueue;
    ManualDispatchQueue backgroundQueue;
    DocumentInbox inbox{folder / "cache" / "Inbox", mainQueue, backgroundQueue};
    std::vector<double> progress;
    std::optional<Copies> copies;
};

TEST_F(DocumentInboxTest, TakesEqualNamesApartInThePickedOrder) {
    fs::create_directories(folder / "a" / "same.d");
    fs::create_directories(folder / "b");
    writeFile(folder / "a" / "same.d" / "inner", "folder");
    writeFile(folder / "b" / "same.d", "file");
    writeFile(folder / "b" / "Caf\xe9 100%.TXT", "other file");
    fs::create_symlink(folder / "b" / "same.d", folder / "caf\xe9 100%.txt");
    QUrl withSlash = fileUrl(folder / "a" / "same.d");
    withSlash.setPath(withSlash.path() + '/');
    import({withSlash,
            fileUrl(folder / "caf\xe9 100%.txt"),
            fileUrl(folder / "b" / "same.d"),
            fileUrl(folder / "b" / "Caf\xe9 100%.TXT")});
    EXPECT_FALSE(copies.has_value());
    runAll();
    ASSERT_TRUE(copies && copies->has_value());
    const std::vector<fs::path> paths = copiedPaths();
    ASSERT_EQ(paths.size(), 4U);
    EXPECT_EQ(paths[0].filename(), "same.d");
    EXPECT_EQ(readText(paths[0] / "inner"), "folder");
    EXPECT_EQ(paths[1].filename(), "caf\xe9 100%.txt");
    EXPECT_EQ(readText(paths[1]), "file");
    EXPECT_EQ(paths[2].filename(), "same (2).d");
    EXPECT_EQ(readText(paths[2]), "file");
    EXPECT_EQ(paths[3].filename(), "Caf\xe9 100% (2).TXT");
    EXPECT_EQ(readText(paths[3]), "other file");
    ASSERT_FALSE(progress.empty());
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(progress.back(), 1.0);
}

// A user who zipped 2 GB waited for them to be copied first, and needed room for them twice.
TEST_F(DocumentInboxTest, TakesNoRoomAndKnowsWhetherAFileIsStillTheOnePicked) {
    constexpr std::uintmax_t kSize = std::uintmax_t{1} << 40U;
    writeFile(folder / "large", "");
    fs::resize_file(folder / "large", kSize);
    for (const char* const name : {"kept", "edited", "replaced", "gone"}) {
        writeFile(folder / name, "text");
    }
    import({fileUrl(folder / "large"),
            fileUrl(folder / "kept"),
            fileUrl(folder / "edited"),
            fileUrl(folder / "replaced"),
            fileUrl(folder / "gone")});
    runAll();
    ASSERT_TRUE(copies && copies->has_value());
    const std::vector<fs::path> paths = copiedPaths();
    EXPECT_EQ(fs::file_size(paths[0]), kSize);
    const auto originals = inbox.originals();
    const auto changed = [&originals](const fs::path& copy) {
        return !originals->isUnchanged(copy);
    };
    EXPECT_EQ(std::count_if(paths.begin(), paths.end(), changed), 0);
    // Of the same length, and with its time set back.
    const auto time = fs::last_write_time(folder / "edited");
    writeFile(folder / "edited", "TEXT");
    fs::last_write_time(folder / "edited", time);
    writeFile(folder / "new", "text");
    fs::rename(folder / "new", folder / "replaced");
    fs::remove(folder / "gone");
    EXPECT_TRUE(originals->isUnchanged(paths[1]));
    for (const std::size_t one : {2U, 3U, 4U}) {
        // A file system that copies without writing has given a copy that nothing changes.
        const bool isLink = fs::is_symlink(fs::symlink_status(paths[one]));
        EXPECT_EQ(changed(paths[one]), isLink) << paths[one];
        EXPECT_TRUE(isLink || readText(paths[one]) == "text") << paths[one];
    }
    EXPECT_TRUE(originals->isUnchanged(folder / "gone")) << "was never noted";
}

TEST_F(DocumentInboxTest, FailureNamesTheItemAndKeepsNone) {
    writeFile(folder / "good", "text");
    import({fileUrl(folder / "good"), fileUrl(folder / "gone.txt")});
    runAll();
    ASSERT_TRUE(copies && !copies->has_value());
    EXPECT_TRUE(copies->error().contains("gone.txt"));
    EXPECT_FALSE(copies->error().contains("cache"));
    EXPECT_TRUE(!fs::exists(folder / "cache" / "Inbox") ||
                fs::is_empty(folder / "cache" / "Inbox"));
}

TEST_F(DocumentInboxTest, CancelledImportSaysNothing) {
    // Without a byte there is no step at which the copying could be stopped.
    writeFile(folder / "empty", "");
    writeFile(folder / "file", "text");
    const auto early = import({fileUrl(folder / "empty"), fileUrl(folder / "file")});
    const auto earlier = import({fileUrl(folder / "empty")});
    early->cancel();
    earlier->cancel();
    runAll();
    EXPECT_TRUE(fs::is_empty(folder / "cache" / "Inbox"));
    const auto late = import({fileUrl(folder / "file")});
    backgroundQueue.runAll();
    late->cancel();
    mainQueue.runAll();
    EXPECT_FALSE(copies.has_value());
    runAll();
    EXPECT_TRUE(fs::is_empty(folder / "cache" / "Inbox"));
}

TEST_F(DocumentInboxTest, ClearTakesWhatEarlierRunsLeft) {
    const fs::path cache = folder / "cache";
    fs::create_directories(cache / "Inbox" / "old" / "0");
    fs::create_directories(cache / "Inbox.from-a-run-that-was-killed");
    fs::create_directories(cache / "Else");
    inbox.clear();
    EXPECT_FALSE(fs::exists(cache / "Inbox"));
    writeFile(folder / "file", "text");
    import({fileUrl(folder / "file")});
    runAll();
    EXPECT_TRUE(copies && copies->has_value());
    EXPECT_EQ(std::distance(fs::directory_iterator(cache), fs::directory_iterator()), 2);
}

}  // namespace
}  // namespace pellumar::test
