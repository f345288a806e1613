#include "archive/reading/Confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "archive/base/File.h"
#include "archive/reading/ArchiveReader.h"
#include "archive/reading/Extraction.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {

namespace {

namespace fs = std::filesystem;

class ConfinementTest : public testing::Test {
  protected:
    ConfinementTest() {
        fs::create_directory(home_ / "in");
        fs::create_directories(home_ / "out" / "folder");
        test::writeFile(home_ / "out" / "file", std::string_view("theirs"));
    }

    // What can be done below a folder, by name; each leaves things as they were.
    [[nodiscard]] static std::vector<std::string> possible(const fs::path& folder) {
        const std::string file = folder / "file";
        const std::string made = folder / "made";
        const auto open = [](const std::string& path, int flags) {
            const int number = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
            return number >= 0 && ::close(number) == 0;
        };
        const std::vector<std::pair<std::string, std::function<bool()>>> deeds{
            {"create",
             [&] { return open(made, O_WRONLY | O_CREAT) && ::unlink(made.c_str()) == 0; }},
            {"nameless", [&] { return open(folder, O_TMPFILE | O_RDWR); }},
            {"write", [&] { return open(file, O_WRONLY); }},
            {"append", [&] { return open(file, O_WRONLY | O_APPEND); }},
            {"read", [&] { return open(file, O_RDONLY); }},
            {"list", [&] { return open(folder, O_RDONLY | O_DIRECTORY); }},
            {"rename",
             [&] {
                 return std::rename(file.c_str(), made.c_str()) == 0 &&
                        std::rename(made.c_str(), file.c_str()) == 0;
             }},
            {"folder",
             [&] { return ::mkdir(made.c_str(), 0700) == 0 && ::rmdir(made.c_str()) == 0; }},
            {"link",
             [&] { return ::symlink("file", made.c_str()) == 0 && ::unlink(made.c_str()) == 0; }}};
        std::vector<std::string> done;
        for (const auto& [name, deed] : deeds) {
            if (deed()) {
                done.push_back(name);
            }
        }
        return done;
    }

    test::TemporaryFolder home_;
    const std::vector<std::string>
        all_{"create", "nameless", "write", "append", "read", "list", "rename", "folder", "link"};
};

TEST_F(ConfinementTest, LeavesTheThreadAndItsOwnNothingButTheFolder) {
    if (!canConfine()) {
        GTEST_SKIP() << "this kernel has no Landlock";
    }
    const fs::path inside = home_ / "in";
    const fs::path outside = home_ / "out";
    test::writeFile(inside / "file", std::string_view("ours"));
    EXPECT_EQ(possible(outside), all_);
    const auto folder = File::openForReading(inside);
    const auto open = File::openForReading(outside);
    ASSERT_TRUE(folder && open);
    const auto look = [&]() -> Result<> {
        EXPECT_EQ(possible(inside), all_);
        EXPECT_EQ(possible(outside), std::vector<std::string>());
        // By a folder that was open before, and from one to the other.
        EXPECT_NE(::mkdirat(open->descriptor(), "new", 0700), 0);
        EXPECT_NE(std::rename((inside / "file").c_str(), (outside / "moved").c_str()), 0);
        EXPECT_NE(std::rename((outside / "file").c_str(), (inside / "moved").c_str()), 0);
        return {};
    };
    EXPECT_TRUE(runConfined(folder->descriptor(), [&] {
        Result<> looked = look();
        std::thread(look).join();
        return looked;
    }));
    EXPECT_EQ(possible(outside), all_) << "whoever waited for it is free";
}

// As if a decoder were taken over: the handler runs on the very threads that decode.
TEST_F(ConfinementTest, AnExtractionCannotReachAnythingElse) {
    if (!canConfine()) {
        GTEST_SKIP() << "this kernel has no Landlock";
    }
    test::ZipBuilder zip;
    for (int i = 0; i < 50; ++i) {
        zip.add(test::deflated("folder/" + std::to_string(i), test::prose(50'000)));
    }
    test::writeFile(home_ / "archive.zip", zip.build());
    const auto archive = ArchiveReader::open(home_ / "archive.zip");
    ASSERT_TRUE(archive);
    int told = 0;
    ExtractionOptions options;
    options.progress = [&](const Progress&) {
        ++told;
        EXPECT_EQ(possible(home_ / "out"), std::vector<std::string>());
    };
    const auto extracted =
        extractInto(home_ / "in", (*archive)->source(), (*archive)->entries(), options);
    ASSERT_TRUE(extracted);
    EXPECT_GT(told, 0);
    EXPECT_EQ(test::readText(home_ / "in" / "folder" / "49"), test::prose(50'000));
}

TEST_F(ConfinementTest, AResultAndMemoryThatIsMissingComeOut) {
    const auto folder = File::openForReading(home_ / "in");
    ASSERT_TRUE(folder);
    const auto value = runConfined(folder->descriptor(), []() -> Result<int> { return 7; });
    EXPECT_EQ(value.value_or(0), 7);
    const auto failed = withinMemory([&] {
        return runConfined(folder->descriptor(), []() -> Result<int> { throw std::bad_alloc(); });
    });
    EXPECT_FALSE(failed);
}

}  // namespace

}  // namespace pellumar::archive
