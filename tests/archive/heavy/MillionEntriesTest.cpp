#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {
namespace {

constexpr std::size_t kMillion = 1000000;

std::uint64_t peakKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            status >> word;
            return std::stoull(word);
        }
    }
    return 0;
}

void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

void writeArchive(const std::filesystem::path& path, std::size_t entries, bool conflict) {
    test::ZipBuilder zip;
    zip.zip64 = true;
    for (std::size_t i = 0; i < entries; ++i) {
        zip.file("folder" + std::to_string(i % 997) + "/file" + std::to_string(i), "");
    }
    if (conflict) {
        zip.file("folder5", "");
    }
    zip.writeTo(path);
}

class MillionEntriesTest : public testing::Test {
  protected:
    [[nodiscard]] std::filesystem::path path() const { return folder_ / "million.zip"; }
    [[nodiscard]] const test::TemporaryFolder& folder() const { return folder_; }

  private:
    test::TemporaryFolder folder_;
};

TEST_F(MillionEntriesTest, AreListedInBoundedMemory) {
    writeArchive(path(), kMillion, false);
    forgetPeak();
    const std::uint64_t before = peakKilobytes();
    const auto archive = Reader::open(path());
    ASSERT_TRUE(archive) << archive.error().describe();
    std::size_t letters = 0;
    for (const Entry& entry : *archive) {
        letters += entry.path.size();
    }
    EXPECT_EQ(archive->size(), kMillion);
    EXPECT_GT(letters, kMillion * 10);
    EXPECT_LT(peakKilobytes() - before, 256U * 1024);
}

// The whole plan is made before the conflict is known, and nothing is written.
TEST_F(MillionEntriesTest, ArePlannedInBoundedMemory) {
    writeArchive(path(), kMillion, true);
    forgetPeak();
    const std::uint64_t before = peakKilobytes();
    const auto report = unzipItem(path(), folder() / "out");
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kConflictingNames);
    EXPECT_TRUE(std::filesystem::is_empty(folder() / "out"));
    EXPECT_LT(peakKilobytes() - before, 320U * 1024);
}

TEST_F(MillionEntriesTest, AreUnpacked) {
    writeArchive(path(), kMillion, false);
    const auto report = unzipItem(path(), folder() / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(report->entries, kMillion + 997);
}

// A million times the same path, and warnings for all but the last.
TEST_F(MillionEntriesTest, OfOnePathBecomeOne) {
    test::ZipBuilder zip;
    zip.zip64 = true;
    for (std::size_t i = 0; i < kMillion; ++i) {
        zip.file("same", i + 1 == kMillion ? "last" : "");
    }
    zip.writeTo(path());
    const auto report = unzipItem(path(), folder() / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(report->warnings.count(), kMillion - 1);
    EXPECT_EQ(std::filesystem::file_size(folder() / "out/same"), 4U);
}

}  // namespace
}  // namespace pellumar::archive
