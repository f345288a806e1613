#include "engine/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QRegularExpression>
#include <algorithm>

#include "archive/base/File.h"
#include "engine/TreeRemoval.h"
#include "platform/FileUrl.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/RecordingConsole.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// Permissions mean nothing to the superuser.
class AsOrdinaryUser {
  public:
    AsOrdinaryUser() : before_(::geteuid()) {
        if (before_ == 0) {
            EXPECT_EQ(::seteuid(65534), 0);
        }
    }
    ~AsOrdinaryUser() { EXPECT_EQ(::seteuid(before_), 0); }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

  private:
    uid_t before_;
};

class FileSystemTest : public testing::Test {
  protected:
    void fill(const fs::path& name) {
        fs::create_directories((folder_ / "docs" / name).parent_path());
        test::writeFile(folder_ / "docs" / name, "x");
    }

    [[nodiscard]] bool stands(const fs::path& name) const {
        return fs::exists(fs::symlink_status(folder_ / "docs" / name));
    }

    test::TemporaryFolder folder_;
    test::RecordingConsole console_;
    FileSystem fileSystem_{DocumentDirectory(folder_ / "docs"), console_};
};

TEST_F(FileSystemTest, ALaunchLeavesTwoEmptyFolders) {
    fileSystem_.createFolders();
    EXPECT_TRUE(stands("outputs/zipOutputs") && stands("outputs/tempImages"));
    fill("outputs/old archive.zip");
    fill("outputs/zipOutputs/E6/deep/file");
    fill("downloads/thing");
    fileSystem_.createFolders();
    fileSystem_.clearWorkspace();
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/outputs"));
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/downloads"));

    // The console tells of each thing before it goes, in the order of the folders; the two that
    // went with the first one have nothing to tell.
    const QString root = fileUrl(folder_ / "docs").toString(QUrl::FullyEncoded);
    QStringList lines = console_.lines();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.takeLast(), "Deleting: " + root + "/downloads/thing");
    lines.sort();
    EXPECT_EQ(lines,
              QStringList({"Deleting: " + root + "/outputs/old%20archive.zip",
                           "Deleting: " + root + "/outputs/tempImages",
                           "Deleting: " + root + "/outputs/zipOutputs"}));
}

TEST_F(FileSystemTest, OneFolderThatCannotBeCreatedOrListedDoesNotStopTheOthers) {
    fs::create_directories(folder_ / "docs");
    test::writeFile(folder_ / "docs/outputs", "in the way");
    fileSystem_.createFolders();
    fill("downloads/thing");
    fileSystem_.clearWorkspace();
    EXPECT_TRUE(stands("downloads") && !stands("downloads/thing"));
    EXPECT_TRUE(stands("outputs"));
}

TEST_F(FileSystemTest, EmptyingSparesHiddenThingsAndDoesNotFollowLinks) {
    test::writeFile(folder_ / "outside", "x");
    for (const char* name : {"outputs/zipOutputs", "outputs/tempImages"}) {
        fill(fs::path(name) / ".hidden");
        fill(fs::path(name) / "shown");
        fs::create_symlink(folder_ / "outside", folder_ / "docs" / name / "link");
        fs::create_symlink("/nowhere", folder_ / "docs" / name / "dangling");
        fs::create_directory_symlink(folder_.path(), folder_ / "docs" / name / "linked folder");
    }
    fileSystem_.clearZipOutputs();
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "docs/outputs/zipOutputs"), {}), 1);
    EXPECT_TRUE(stands("outputs/zipOutputs/.hidden"));
    EXPECT_TRUE(stands("outputs/tempImages/shown"));
    fileSystem_.clearTempImages();
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "docs/outputs/tempImages"), {}), 1);
    EXPECT_TRUE(fs::exists(folder_ / "outside"));
    EXPECT_TRUE(console_.lines().isEmpty());
}

TEST_F(FileSystemTest, WithAQueueThingsGoOutOfSightAtOnceAndAreDeletedByIt) {
    test::ManualDispatchQueue interrupted;
    test::ManualDispatchQueue queue;
    fill("outputs/zipOutputs/A/deep/file");
    fill("outputs/zipOutputs/.hidden");
    FileSystem(DocumentDirectory(folder_ / "docs"), console_, &interrupted).clearZipOutputs();
    EXPECT_FALSE(stands("outputs/zipOutputs/A"));
    EXPECT_TRUE(stands("outputs/zipOutputs/.hidden"));
    EXPECT_FALSE(fs::is_empty(folder_ / "docs/.discarded"));

    // The next launch takes that along.
    fill("outputs/zipOutputs/A/new");
    fill("downloads/A");
    const FileSystem next(DocumentDirectory(folder_ / "docs"), console_, &queue);
    next.clearWorkspace();
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/outputs"));
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/downloads"));
    queue.runAll();
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/.discarded"));

    // What cannot be moved is deleted all the same.
    fs::remove(folder_ / "docs/.discarded");
    fill(".discarded");
    fill("downloads/A");
    next.clearWorkspace();
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/downloads"));
}

TEST_F(FileSystemTest, ListsLinksButNothingHiddenInNaturalOrder) {
    for (const char* name : {"file 10", "File 2", ".hidden", "c\xFF", "b", "1"}) {
        fill(name);
    }
    fs::create_symlink("/nowhere", folder_ / "docs/dangling");
    QList<QUrl> expected;
    for (const char* name : {"1", "b", "c\xFF", "dangling", "File 2", "file 10"}) {
        expected.append(fileUrl(folder_ / "docs" / name));
    }
    const std::optional<FileSystem::Contents> found = FileSystem::contents(folder_ / "docs");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->items, expected);
    EXPECT_EQ(found->hidden.size(), 1);
    EXPECT_FALSE(FileSystem::contents(folder_ / "missing"));
    EXPECT_FALSE(FileSystem::contents(folder_ / "docs/b"));
}

TEST_F(FileSystemTest, NamesItsPlaces) {
    const QString root = fileUrl(folder_ / "docs").toString();
    EXPECT_EQ(fileSystem_.archive("").toString(), root + "/outputs/.zip");
    EXPECT_EQ(localPath(fileSystem_.archive("a/../b%41 ")),
              folder_ / "docs/outputs/a/../b%41 .zip");
    const QRegularExpression shape(
        "^file:.*/docs/outputs/zipOutputs/[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$");
    EXPECT_TRUE(shape.match(fileSystem_.newExtraction().toString()).hasMatch());
    EXPECT_NE(fileSystem_.newExtraction(), fileSystem_.newExtraction());
}

TEST_F(FileSystemTest, RemovesOneItemAndIgnoresWhatIsNotThere) {
    fill("a/b/c");
    fill("keep");
    fs::create_directory_symlink(folder_ / "docs/a", folder_ / "docs/link");
    fileSystem_.removeItem(fileUrl(folder_ / "docs/link"));
    EXPECT_TRUE(stands("a/b/c") && !stands("link"));
    for (const char* url : {"/docs/a", "/docs/a", "/docs/keep/not/a/folder"}) {
        fileSystem_.removeItem(fileUrl(folder_.path().native() + url));
    }
    fileSystem_.removeItem(QUrl("https://example.org/keep"));
    EXPECT_TRUE(stands("keep") && !stands("a"));
}

// An extracted archive may hold folders that nobody may enter, and they were left in the workspace
// for ever.
TEST(TreeRemoval, GetsRidOfFoldersWithoutPermissions) {
    const AsOrdinaryUser user;
    const test::TemporaryFolder folder;
    const fs::path top = folder / "top";
    for (const char* name : {"read only/inner", "closed/inner", "write only/inner"}) {
        fs::create_directories(top / name);
        test::writeFile(top / name / "file", "x");
        ::chmod((top / name / "file").c_str(), 0);
    }
    ::chmod((top / "read only/inner").c_str(), 0555);
    ::chmod((top / "read only").c_str(), 0555);
    ::chmod((top / "closed").c_str(), 0);
    ::chmod((top / "write only").c_str(), 0222);
    ::chmod(top.c_str(), 0555);
    EXPECT_TRUE(removeTree(top));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

// Deeper than a path may be long, and than files may be open.
TEST(TreeRemoval, WorksAtAnyDepth) {
    const test::TemporaryFolder folder;
    const std::string name(10, 'd');
    archive::File inner(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int depth = 0; depth < 1100; ++depth) {
        ASSERT_EQ(::mkdirat(inner.descriptor(), name.c_str(), 0700), 0);
        inner = archive::File(::openat(inner.descriptor(), name.c_str(), O_RDONLY | O_CLOEXEC));
    }
    EXPECT_TRUE(removeTree(folder / name));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

}  // namespace
}  // namespace pellumar
