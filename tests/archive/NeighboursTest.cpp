#include <map>
#include <random>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

// Entries that lie near each other are read together, and folders are completed as they fill up.
// Whatever the sizes, the gaps and the order, that must not show.
class NeighboursTest : public ExtractionTest, public testing::WithParamInterface<unsigned> {
  protected:
    struct Expected {
        std::map<std::string, std::string> files;
        std::map<std::string, std::uint32_t> folderTimes;
    };

    Expected fill(ZipBuilder& zip) {
        Expected expected;
        for (const std::string path : {"a/", "a/b/", "a/c/", "d/", "d/e/f/"}) {
            const auto seconds =
                static_cast<std::uint32_t>(1'000'000'000 + random_() % 500'000'000);
            expected.folderTimes[path] = seconds;
            zip.add(folder(path).with(&ZipHeader::extra, timeField(seconds)));
        }
        for (int i = 0; i < 300; ++i) {
            const std::string path = one({"", "a/", "a/b/", "a/c/", "d/", "d/e/", "d/e/f/"}) +
                                     std::to_string(random_() % 1'000'000);
            const std::string data =
                prose(one({0, 50, 3'000, 70'000, 600'000, 1'500'000}), random_());
            ZipEntry entry = random_() % 3 == 0 ? stored(path, data) : deflated(path, data);
            if (random_() % 4 == 0) {
                entry.described();
            }
            entry.before.assign(one({0, 0, 0, 90, 9'000, 40'000}), 'P');
            entry.local.extra = test::extraField(0x7777, std::string(one({0, 0, 30, 2'000}), 'x'));
            zip.add(entry);
            expected.files[path] = data;
        }
        return expected;
    }

  private:
    static std::string timeField(std::uint32_t seconds) {
        return test::extraField(0x5455, std::string("\x01", 1) + test::littleEndian(seconds, 4));
    }

    // Most are small: a file of a thousand bytes in a hundred of a million.
    std::size_t one(std::initializer_list<std::size_t> choices) {
        const std::size_t first = random_() % choices.size();
        return choices.begin()[random_() % (first + 1)];
    }
    std::string one(std::initializer_list<const char*> choices) {
        return choices.begin()[random_() % choices.size()];
    }

    std::mt19937 random_{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Seeds, NeighboursTest, testing::Range(0U, 4U));

TEST_P(NeighboursTest, ComeOutWhole) {
    ZipBuilder zip;
    const Expected expected = fill(zip);
    zip.writeTo(archivePath());
    for (const unsigned threads : {1U, 2U, 7U}) {
        auto reader = Reader::open(archivePath());
        ASSERT_TRUE(reader) << reader.error().describe();
        const auto to = home() / ("out" + std::to_string(threads));
        const auto report = reader->extractAll(to, {.limits = {.threads = threads}});
        ASSERT_TRUE(report) << report.error().describe();
        for (const auto& [path, data] : expected.files) {
            EXPECT_TRUE(readText(to / path) == data) << path;
        }
        for (const auto& [path, seconds] : expected.folderTimes) {
            struct stat status {};
            ASSERT_EQ(::stat((to / path).c_str(), &status), 0);
            EXPECT_EQ(status.st_mtim.tv_sec, seconds) << path;
        }
    }
}

}  // namespace
}  // namespace pellumar::archive
