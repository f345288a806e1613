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

    TemporaryFolder folder;
    ManualDispatchQueue mainQueue;
    ManualDispatchQueue backgroundQueue;
    DocumentInbox inbox{folder / "cache" / "Inbox", mainQueue, backgroundQueue};
    std::vector<double> progress;
    std::optional<Copies> copies;
};

TEST_F(DocumentInboxTest, CopiesEqualNamesInThePickedOrder) {
    fs::create_directories(folder / "a" / "same");
    fs::create_directories(folder / "b");
    writeFile(folder / "a" / "same" / "inner", "folder");
    writeFile(folder / "b" / "same", "file");
    fs::create_symlink(folder / "b" / "same", folder / "caf\xe9 100%.txt");
    QUrl withSlash = fileUrl(folder / "a" / "same");
    withSlash.setPath(withSlash.path() + '/');
    import({withSlash, fileUrl(folder / "caf\xe9 100%.txt"), fileUrl(folder / "b" / "same")});
    EXPECT_FALSE(copies.has_value());
    runAll();
    ASSERT_TRUE(copies && copies->has_value());
    std::vector<fs::path> paths;
    for (const QUrl& url : **copies) {
        paths.push_back(localPath(url).value_or(fs::path()));
    }
    ASSERT_EQ(paths.size(), 3U);
    EXPECT_EQ(readText(paths[0] / "inner"), "folder");
    EXPECT_EQ(paths[0].filename(), "same");
    EXPECT_EQ(paths[1].filename(), "caf\xe9 100%.txt");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(paths[1])));
    EXPECT_EQ(readText(paths[2]), "file");
    ASSERT_FALSE(progress.empty());
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
    EXPECT_EQ(progress.back(), 1.0);
}

TEST_F(DocumentInboxTest, FailureNamesTheItemAndKeepsNone) {
    writeFile(folder / "good", "text");
    import({fileUrl(folder / "good"), fileUrl(folder / "gone.txt")});
    runAll();
    ASSERT_TRUE(copies && !copies->has_value());
    EXPECT_TRUE(copies->error().contains("gone.txt"));
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
