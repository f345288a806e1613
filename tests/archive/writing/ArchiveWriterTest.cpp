#include "archive/writing/ArchiveWriterTest.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/SampleContent.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using pellumar::test::SampleKind;

TEST_F(ArchiveWriterTest, OthersExtractWhatWasAdded) {
    put("empty", "");
    put("folder/text.txt", pellumar::test::sampleContent(SampleKind::kText, 100'000));
    put("folder/exact", pellumar::test::sampleContent(SampleKind::kBinary, 2 * kChunk));
    put("folder/more", pellumar::test::sampleContent(SampleKind::kMixed, 3 * kChunk + 1));
    put("große Wörter/日本.bin", pellumar::test::sampleContent(SampleKind::kNoise, 70'000));
    fs::create_symlink("folder/text.txt", sources_ / "link");
    fs::permissions(sources_ / "folder/exact", fs::perms{0750});
    const timespec times[] = {{.tv_sec = 1'000'000'000, .tv_nsec = 0},
                              {.tv_sec = 1'000'000'001, .tv_nsec = 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (sources_ / "folder/exact").c_str(), times, 0), 0);

    auto writer = create();
    const std::vector<std::string> paths = {"folder/",
                                            "empty",
                                            "folder/text.txt",
                                            "folder/exact",
                                            "folder/more",
                                            "große Wörter",
                                            "große Wörter/日本.bin",
                                            "link"};
    for (const std::string& path : paths) {
        const auto added = writer->addEntry(source(path));
        ASSERT_TRUE(added) << added.error().describe();
    }
    ASSERT_TRUE(writer->close());
    expectSound();

    const fs::path out = archives_ / "out";
    const auto unpacked = test::runProcess({"unzip", "-q", archivePath(), "-d", out});
    ASSERT_EQ(unpacked.exitCode, 0) << unpacked.output;
    const auto same = test::runProcess({"diff", "-r", sources_.path(), out});
    EXPECT_EQ(same.output, "");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(out / "link")));
    struct stat status {};
    ASSERT_EQ(::stat((out / "folder/exact").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0750U);
    EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'001);
}

TEST_F(ArchiveWriterTest, BytesDependOnTheSourcesAlone) {
    std::vector<Source> all;
    for (std::uint32_t i = 0; i < 120; ++i) {
        const std::string path = "small/" + std::to_string(i);
        put(path,
            pellumar::test::sampleContent(test::kSampleKinds[i % 5], std::size_t{i} * 997, i));
        all.push_back(source(path));
    }
    put("large", pellumar::test::sampleContent(SampleKind::kMixed, 9 * kChunk + 77));
    all.insert(all.begin() + 3, source("large"));
    all.push_back(source("large"));
    all.push_back(source("small"));

    std::vector<std::uint8_t> expected;
    for (const unsigned threads : {1U, 2U, 8U}) {
        for (const bool ahead : {false, true}) {
            fs::remove(archivePath());
            auto writer = create(threads);
            if (ahead) {
                writer->compressAhead(all);
            }
            for (Source next : all) {
                next.readSize = ahead ? next.readSize : 1;
                ASSERT_TRUE(writer->addEntry(next));
            }
            ASSERT_TRUE(writer->close());
            const auto made = test::readFile(archivePath());
            if (expected.empty()) {
                expected = made;
                expectSound();
            }
            ASSERT_TRUE(made == expected) << threads << " " << ahead;
        }
    }
}

TEST_F(ArchiveWriterTest, ABrokenPromiseCostsNothingButTheWork) {
    for (const char* path : {"a", "b", "c", "d"}) {
        put(path, std::string(path) + " content");
    }
    put("large", pellumar::test::sampleContent(SampleKind::kNoise, 20 * kChunk));
    auto writer = create();
    writer->compressAhead({source("large"), source("a"), source("missing"), source("b")});
    ASSERT_TRUE(writer->addEntry(source("a")));  // not what was announced
    writer->compressAhead({source("b"), source("large"), source("c"), source("d")});
    ASSERT_TRUE(writer->addEntry(source("b")));
    // Announced again in part: what is under way goes on.
    writer->compressAhead({source("large"), source("d")});
    ASSERT_TRUE(writer->addEntry(source("large")));
    ASSERT_TRUE(writer->addEntry(source("c")));
    ASSERT_TRUE(writer->addEntry(source("d")));
    writer->compressAhead({source("large"), source("large")});  // never added
    ASSERT_TRUE(writer->close());
    expectSound();
    EXPECT_EQ(listed(), "a\nb\nlarge\nc\nd\n");
}

TEST_F(ArchiveWriterTest, PathsThatAreNoEntryPathsAreRefused) {
    put("kept", "kept");
    auto writer = create();
    const std::string tooLong(65'536, 'x');
    for (const std::string& path : {std::string(),
                                    std::string("/kept"),
                                    std::string(".."),
                                    std::string("../kept"),
                                    std::string("a/../kept"),
                                    std::string("a/.."),
                                    std::string("kept\0", 5),
                                    tooLong}) {
        const auto added = writer->addEntry(source(path));
        EXPECT_EQ(codeOf(added), ErrorCode::kInvalidArgument) << path;
    }
    put("..kept", "also kept");
    ASSERT_TRUE(writer->addEntry(source("..kept")));
    ASSERT_TRUE(writer->addEntry(source("kept")));
    ASSERT_TRUE(writer->close());
    EXPECT_EQ(listed(), "..kept\nkept\n");

    EXPECT_TRUE(writer->close());
    EXPECT_EQ(codeOf(writer->addEntry(source("kept"))), ErrorCode::kInvalidArgument);
    const auto again = ArchiveWriter::create(archivePath(), {});
    EXPECT_EQ(again.error().code, ErrorCode::kAlreadyExists);
}

// It used to be finished by its end, as if all had been added.
TEST_F(ArchiveWriterTest, AnAbandonedArchiveIsGone) {
    put("a", "content");
    {
        auto writer = create();
        ASSERT_TRUE(writer->addEntry(source("a")));
        writer->compressAhead({source("a"), source("a")});
        EXPECT_TRUE(fs::is_empty(archives_.path())) << "no half archive stands anywhere";
    }
    EXPECT_TRUE(fs::is_empty(archives_.path()));
}

TEST_F(ArchiveWriterTest, NamesThatAreNotUtf8StayAsTheyAre) {
    put("caf\xE9", "coffee");
    auto writer = create();
    ASSERT_TRUE(writer->addEntry(source("caf\xE9")));
    ASSERT_TRUE(writer->close());
    const std::string made = test::readText(archivePath());
    EXPECT_NE(made.find("caf\xE9"), std::string::npos);
    EXPECT_EQ(made[7] & 0x08, 0) << "no UTF-8 flag";
}

TEST_F(ArchiveWriterTest, MoreEntriesThanSixteenBitsCount) {
    constexpr int kEntries = 70'000;
    put("target", "content");
    std::vector<Source> all;
    for (int i = 0; i < kEntries; ++i) {
        all.push_back(source(std::to_string(i)));
        fs::create_symlink("target", sources_ / all.back().name);
    }
    auto writer = create();
    writer->compressAhead(all);
    for (const Source& next : all) {
        ASSERT_TRUE(writer->addEntry(next));
    }
    ASSERT_TRUE(writer->close());
    expectSound();
    const auto counted = test::runProcess(
        {"python3",
         "-c",
         "import sys, zipfile; print(len(zipfile.ZipFile(sys.argv[1]).namelist()))",
         archivePath()});
    EXPECT_EQ(counted.output, std::to_string(kEntries) + "\n");
}

}  // namespace
}  // namespace pellumar::archive
