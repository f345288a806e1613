#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

#include "archive/Archive.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"

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

}  // namespace
}  // namespace pellumar::archive
