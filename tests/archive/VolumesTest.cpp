#include "archive/ExtractionTest.h"
#include "archive/writing/SampleContent.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

struct Splitter {
    const char* label;
    const char* command;  // in the shell, in the folder of "a" and "b"
    std::string first;
    std::string middle;
    std::string last;
};

class VolumesTest : public ExtractionTest, public testing::WithParamInterface<Splitter> {
  protected:
    VolumesTest() {
        test::writeFile(home() / "a", std::string_view(a_));
        test::writeFile(home() / "b", std::string_view(b_));
        const auto made = test::runProcess(
            {"sh", "-c", "cd \"$0\" && " + std::string(GetParam().command), home().path()});
        EXPECT_EQ(made.exitCode, 0) << made.output;
    }

    static std::string noise(std::size_t size) {
        const auto bytes = pellumar::test::sampleContent(pellumar::test::SampleKind::kNoise, size);
        return {bytes.begin(), bytes.end()};
    }

    const std::string a_ = noise(300'000);
    const std::string b_ = noise(400'000) + prose(100'000);
};

TEST_P(VolumesTest, OpenByAnyOfThem) {
    for (const std::string& name : {GetParam().first, GetParam().middle, GetParam().last}) {
        fs::remove_all(destination());
        const auto report = unzipItem(home() / name, destination());
        ASSERT_TRUE(report) << name << ": " << report.error().describe();
        EXPECT_TRUE(report->warnings.empty()) << report->warnings.kept()[0].describe();
        EXPECT_TRUE(text("a") == a_);
        EXPECT_TRUE(text("b") == b_);
    }
    // Through a link elsewhere, as what was picked is held.
    fs::create_directory(home() / "elsewhere");
    fs::create_symlink(home() / GetParam().last, home() / "elsewhere" / GetParam().last);
    EXPECT_TRUE(Reader::open(home() / "elsewhere" / GetParam().last));
}

TEST_P(VolumesTest, AMissingOneIsNamed) {
    for (const std::string& gone : {GetParam().first, GetParam().middle, GetParam().last}) {
        fs::rename(home() / gone, home() / "gone");
        for (const std::string& name : {GetParam().first, GetParam().middle, GetParam().last}) {
            if (name != gone) {
                const auto opened = Reader::open(home() / name);
                ASSERT_FALSE(opened);
                EXPECT_EQ(opened.error().code, ErrorCode::kVolumeMissing) << name;
                EXPECT_EQ(opened.error().entry, gone);
            }
        }
        fs::rename(home() / "gone", home() / gone);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Splitters,
    VolumesTest,
    testing::Values(Splitter{"InfoZip", "zip -q -s 256k x.zip a b", "x.z01", "x.z02", "x.zip"},
                    Splitter{"SevenZip",
                             "7zz a -bd -tzip -v256k x.zip a b",
                             "x.zip.001",
                             "x.zip.002",
                             "x.zip.003"}),
    labelOf<Splitter>);

// One that says it is the last of several, without them and under any name.
TEST(VolumeNamesTest, WhatIsNoVolumeFailsAsBefore) {
    const test::TemporaryFolder home;
    ZipBuilder zip;
    zip.file("a", "x");
    zip.end.disk = 1;
    zip.end.directoryDisk = 1;
    for (const auto& [name, code] : {std::pair("x.zip", ErrorCode::kVolumeMissing),
                                     std::pair("x.zipped", ErrorCode::kMultipleDisks)}) {
        zip.writeTo(home / name);
        EXPECT_EQ(Reader::open(home / name).error().code, code) << name;
    }
    test::writeFile(home / "text.2024", std::string_view("no archive"));
    EXPECT_EQ(Reader::open(home / "text.2024").error().code, ErrorCode::kNotAnArchive);
}

}  // namespace
}  // namespace pellumar::archive
