#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/base/Bytes.h"
#include "archive/base/Crc32.h"
#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kOver4GiB = (4ULL << 30U) + 12345;
// On a busy machine that has other work.
constexpr std::chrono::minutes kOthersDeadline{10};
constexpr std::string_view kMark = "at the very end";

// A file over 4 GiB, all of it a hole but the end, and one behind it.
TEST(LargeFileTest, GoesThroughAnArchiveAndBack) {
    const test::TemporaryFolder home;
    std::ofstream(home / "large").close();
    fs::resize_file(home / "large", kOver4GiB);
    std::fstream(home / "large", std::ios::in | std::ios::out | std::ios::ate) << kMark;
    std::ofstream(home / "small") << "small";

    auto archive = Archive::open(home / "large.zip", AccessMode::kCreate);
    ASSERT_TRUE(archive);
    for (const char* name : {"large", "small"}) {
        const auto added = archive->addEntry(name, home.path(), CompressionMethod::kDeflate);
        ASSERT_TRUE(added) << added.error().describe();
    }
    ASSERT_TRUE(archive->close());
    fs::remove(home / "large");

    const auto others =
        test::runProcess({"unzip", "-tq", (home / "large.zip").native()}, {}, kOthersDeadline);
    EXPECT_EQ(others.exitCode, 0) << others.output;

    const auto report = unzipItem(home / "large.zip", home / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(report->bytes, kOver4GiB + kMark.size() + 5);
    ASSERT_EQ(fs::file_size(home / "out/large"), kOver4GiB + kMark.size());
    std::ifstream large(home / "out/large");
    large.seekg(-static_cast<std::streamoff>(kMark.size()), std::ios::end);
    std::string end(kMark.size(), '\0');
    large.read(end.data(), static_cast<std::streamsize>(end.size()));
    EXPECT_EQ(end, kMark);
}

constexpr std::uint64_t k4GiB = 1ULL << 32U;

// A stored file over 4 GiB and one behind it, by a writer that knows no ZIP64: of sizes and offsets
// only the lower 32 bits are there.
TEST(LargeFileTest, OffsetsOver4GiBWithoutZip64AreTaken) {
    const test::TemporaryFolder home;
    const std::string mark = "@here is the hole@";
    const std::vector<std::uint8_t> zeros(1U << 20U);
    std::uint32_t checksum = kCrc32OfNothing;
    for (unsigned i = 0; i < k4GiB >> 20U; ++i) {
        checksum = crc32(checksum, zeros);
    }
    checksum = crc32(checksum, ByteView(zeros).first(1000));

    test::ZipEntry large = test::stored("large", mark).with(&test::ZipHeader::crc32, checksum);
    large.with(&test::ZipHeader::compressedSize, 1000);
    large.with(&test::ZipHeader::uncompressedSize, 1000);
    test::ZipEntry small = test::stored("small", "data");
    const std::uint64_t start = 30 + 5;
    small.central.offset = start + 1000;
    test::ZipBuilder zip;
    zip.end.directoryOffset = start + 1000 + 30 + 5 + 4;
    const std::string bytes = zip.add(large).add(small).build();
    const std::size_t hole = bytes.find(mark);
    ASSERT_EQ(hole, start);
    {
        std::ofstream file(home / "large.zip", std::ios::binary);
        file << bytes.substr(0, hole);
        file.seekp(static_cast<std::streamoff>(start + k4GiB + 1000));
        file << bytes.substr(hole + mark.size());
    }
    const auto report = unzipItem(home / "large.zip", home / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(fs::file_size(home / "out/large"), k4GiB + 1000);
    EXPECT_EQ(test::readText(home / "out/small"), "data");
}

// It does not take 4 GiB of an archive to hold a file of that size.
TEST(LargeFileTest, SizesOver4GiBWithoutZip64AreTaken) {
    const test::TemporaryFolder home;
    std::ofstream(home / "large").close();
    fs::resize_file(home / "large", kOver4GiB);
    auto archive = Archive::open(home / "ours.zip", AccessMode::kCreate);
    ASSERT_TRUE(archive);
    ASSERT_TRUE(archive->addEntry("large", home.path(), CompressionMethod::kDeflate));
    ASSERT_TRUE(archive->close());
    fs::remove(home / "large");
    const auto ours = Reader::open(home / "ours.zip");
    const Entry entry = (*ours)[0];
    const std::string bytes = test::readText(home / "ours.zip");
    const std::size_t data =
        30 + loadLittleEndian<std::uint16_t>(test::readFile(home / "ours.zip"), 26) +
        loadLittleEndian<std::uint16_t>(test::readFile(home / "ours.zip"), 28);
    test::ZipEntry cut = test::packed("large", 8, bytes.substr(data, entry.compressedSize), "");
    cut.with(&test::ZipHeader::crc32, entry.crc32);
    cut.with(&test::ZipHeader::uncompressedSize, kOver4GiB % k4GiB).described();
    test::ZipBuilder().add(cut).writeTo(home / "cut.zip");
    const auto report = unzipItem(home / "cut.zip", home / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(fs::file_size(home / "out/large"), kOver4GiB);
    // What the directory does not claim counts for the limits all the same.
    const auto claiming = Reader::open(home / "cut.zip");
    std::vector<std::uint8_t> buffer(1U << 20U);
    for (const ExtractionLimits& limits :
         {ExtractionLimits{.bytes = kOver4GiB - 1}, ExtractionLimits{.ratio = 500}}) {
        auto stream = claiming->openEntry(0, {.limits = limits});
        ASSERT_TRUE(stream);
        auto count = stream->read(buffer);
        for (int i = 0; count && i < 3; ++i) {
            count = stream->read(buffer);
        }
        ASSERT_FALSE(count);
        EXPECT_EQ(count.error().code, ErrorCode::kOverLimit);
        EXPECT_EQ(claiming->extractAll(home / "limited", {.limits = limits}).error().code,
                  ErrorCode::kOverLimit);
    }
    // Of an archive that has ZIP64 records that is no oversight.
    test::ZipBuilder knowing;
    knowing.zip64 = true;
    knowing.add(cut).writeTo(home / "knowing.zip");
    EXPECT_EQ(unzipItem(home / "knowing.zip", home / "none").error().code,
              ErrorCode::kSizeMismatch);
    EXPECT_TRUE(fs::is_empty(home / "none"));
}

}  // namespace
}  // namespace pellumar::archive
