#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <thread>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/faults/FailingMemory.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

std::string repeated(const std::string& piece, unsigned times) {
    std::string text;
    for (unsigned i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

// ThreadSanitizer has one of its own once there has been another.
#ifdef __SANITIZE_THREAD__
constexpr int kThreads = 2;
#else
constexpr int kThreads = 1;
#endif

// Whether only this thread is left. The system takes a moment to forget one that was joined.
bool isAlone() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (std::distance(fs::directory_iterator("/proc/self/task"), {}) > kThreads) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

class AllocationTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (::access("/dev/shm", W_OK) == 0) {
            ::setenv("TMPDIR", "/dev/shm", 1);
        }
    }

    // Does a job again and again, each time with another allocation failing, until there is none
    // left. It has to succeed all the same, or to say that memory was missing, and may leave
    // neither threads nor a part of a file.
    void sweep(const std::function<Result<>()>& job,
               const std::function<void(bool)>& look,
               std::size_t stride = 1) {
        std::size_t at = 0;
        for (bool failed = true; failed && !HasFailure(); at += stride) {
            test::failAllocation(at);
            const Result<> done = job();
            failed = test::hasFailedAllocation();
            SCOPED_TRACE("allocation " + std::to_string(at));
            EXPECT_TRUE(isAlone());
            EXPECT_TRUE(done || done.error().code == ErrorCode::kOutOfMemory)
                << done.error().describe();
            EXPECT_TRUE(done || failed);
            look(done.has_value());
        }
        std::printf("%zu allocations\n", at - stride);
    }

    void sweepExtraction(const test::ZipBuilder& zip, const Files& files, std::size_t stride) {
        const fs::path archive = home_ / "archive.zip";
        const fs::path out = home_ / "out";
        zip.writeTo(archive);
        const auto extract = [&]() -> Result<> {
            if (auto opened = Reader::open(archive); !opened) {
                return Failure(opened.error());
            }
            auto report = unzipItem(archive, out);
            return report ? Result<>() : Failure(report.error());
        };
        const auto look = [&](bool done) {
            if (fs::exists(out)) {
                expectWhole(out, files, done);
            }
            fs::remove_all(out);
        };
        sweep(extract, look, stride);
    }

    // That what stands in `folder` is of `files` and whole; all of it if `all`.
    static void expectWhole(const fs::path& folder, const Files& files, bool all) {
        std::size_t found = 0;
        for (const auto& item : fs::recursive_directory_iterator(folder)) {
            if (item.is_regular_file() && !item.is_symlink()) {
                const auto known = files.find(item.path().lexically_relative(folder));
                ASSERT_NE(known, files.end()) << item.path();
                EXPECT_TRUE(test::readText(item.path()) == known->second) << item.path();
                ++found;
            }
        }
        EXPECT_TRUE(!all || found == files.size());
    }

    [[nodiscard]] const test::TemporaryFolder& home() const { return home_; }

  private:
    test::TemporaryFolder home_;
};

TEST_F(AllocationTest, ExtractionLacksMemory) {
    const Files files = {{"small", test::prose(3000)},
                         {"\u5199\u771F/\u65B0", "a name of a vote"},
                         {"in/large", repeated(test::prose(1000), 700)}};
    test::ZipBuilder zip;
    zip.add(test::deflated("small", files.at("small")))
        .add(test::stored("\x8E\xCA\x90\x5E/\x90\x56", "a name of a vote"))
        .add(test::folder("in/"))
        .add(test::deflated("in/large", files.at("in/large")).described())
        .add(test::symbolicLink("link", "in/large"));
    sweepExtraction(zip, files, 1);
}

TEST_F(AllocationTest, WritingBehindLacksMemory) {
    const Files files = {{"giant", std::string(17UL << 20U, '\0')}, {"last", "text"}};
    test::ZipBuilder zip;
    zip.add(test::deflated("giant", files.at("giant"))).add(test::stored("last", "text"));
    sweepExtraction(zip, files, 3);
}

TEST_F(AllocationTest, CompressionLacksMemory) {
    const Files files = {{"small", test::prose(3000)},
                         {"empty", ""},
                         {"large", repeated(test::prose(1000), 3000)},
                         {"other", test::prose(100)}};
    for (const auto& [name, content] : files) {
        test::writeFile(home() / name, std::string_view(content));
    }
    const fs::path made = home() / "made.zip";
    std::vector<EntrySource> sources;
    for (const auto& [name, content] : files) {
        sources.push_back({.path = name, .base = home().path()});
    }
    const std::vector<std::string> names = {"empty", "large", "other", "small"};
    sweep(
        [&]() -> Result<> {
            auto archive = Archive::open(made, AccessMode::kCreate);
            if (!archive) {
                return Failure(archive.error());
            }
            auto added =
                archive->addAll(sources, CompressionMethod::kDeflate, kDefaultWriteChunkSize, {});
            if (!added) {
                return added;
            }
            return archive->close();
        },
        [&](bool done) {
            EXPECT_EQ(fs::exists(made), done);
            if (done) {
                ASSERT_TRUE(unzipItem(made, home() / "out"));
                expectWhole(home() / "out", files, true);
                fs::remove_all(home() / "out");
                fs::remove(made);
            }
            EXPECT_EQ(std::distance(fs::directory_iterator(home().path()), {}), 4);
        });
}

}  // namespace
}  // namespace pellumar::archive
