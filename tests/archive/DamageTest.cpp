#include "archive/ExtractionTest.h"
#include "support/NamesWatch.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

class DamageTest : public ExtractionTest {};

TEST_F(DamageTest, AWrongChecksumFailsTheJobUnlessItIsNotAskedFor) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{100}, std::size_t{3000000}}) {
        for (const bool compressed : {false, true}) {
            ZipEntry wrong =
                compressed ? deflated("d/wrong", prose(size)) : stored("d/wrong", prose(size));
            ZipBuilder zip;
            zip.add(wrong.with(&ZipHeader::crc32, 0x12345678U));
            expectFailed(zip, ErrorCode::kChecksumMismatch, "d/wrong");
            const auto skipped = unzip(zip, true);
            ASSERT_TRUE(skipped) << skipped.error().describe();
            EXPECT_EQ(text("d/wrong"), prose(size));
        }
    }
}

TEST_F(DamageTest, NothingStandsUnderItsNameBeforeItIsVerified) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{100}, std::size_t{3000000}}) {
        ZipEntry wrong = deflated("wrong", prose(size));
        ZipBuilder zip;
        zip.file("right", "right").add(wrong.with(&ZipHeader::crc32, 0x12345678U));
        zip.writeTo(archivePath());
        fs::remove_all(destination());
        fs::create_directory(destination());
        pellumar::test::NamesWatch watch(destination());
        ASSERT_TRUE(watch.isWatching());
        ASSERT_FALSE(unzipItem(archivePath(), destination()));
        EXPECT_EQ(watch.seen().count("wrong"), 0U) << size;
        ASSERT_TRUE(unzipItem(archivePath(), destination() / "all", true));
        EXPECT_EQ(readText(destination() / "all" / "wrong"), prose(size));
    }
}

TEST_F(DamageTest, DamagedDataFailsTheJobAndOthersMayStand) {
    for (const std::size_t size : {std::size_t{2000}, std::size_t{3000000}}) {
        ZipEntry damaged = deflated("damaged", prose(size));
        // A block of type 3, which there is not.
        damaged.data[0] = static_cast<char>(0xFF);
        ZipBuilder zip;
        zip.file("whole", "whole").add(damaged);
        for (const bool skip : {false, true}) {
            const auto report = unzip(zip, skip);
            ASSERT_FALSE(report);
            EXPECT_EQ(report.error().code, ErrorCode::kDamagedData);
            EXPECT_EQ(report.error().entry, "damaged");
            EXPECT_FALSE(fs::exists(out("damaged")));
            EXPECT_TRUE(!fs::exists(out("whole")) || text("whole") == "whole");
        }
    }
}

TEST_F(DamageTest, AnArchiveCutAnywhereFailsAndLeavesNoPartOfAFile) {
    ZipBuilder zip;
    zip.zip64 = true;
    zip.comment = "a comment";
    zip.add(deflated("one", prose(4000, 1)).described())
        .add(stored("two", prose(1000, 2)))
        .add(deflated("three", prose(2000, 3)).described(true, true));
    const std::string whole = zip.build();
    ASSERT_TRUE(unzipBytes(whole));
    const Paths all = listing();
    for (std::size_t size = 0; size < whole.size(); size += size + 200 < whole.size() ? 41 : 1) {
        const auto report = unzipBytes(whole.substr(0, size));
        ASSERT_FALSE(report) << size;
        EXPECT_EQ(listing(), Paths()) << size;
    }
}

TEST_F(DamageTest, WhatIsNoArchiveIsSaidToBeNone) {
    for (const std::string& bytes : {std::string(), std::string("PK"), prose(100000)}) {
        const auto report = unzipBytes(bytes);
        ASSERT_FALSE(report);
        EXPECT_EQ(report.error().code, ErrorCode::kNotAnArchive);
    }
    const std::string cut = ZipBuilder().file("a", prose(1000)).build().substr(0, 500);
    const auto report = unzipBytes(cut);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kTruncated);
    const auto absent = unzipItem(home() / "absent.zip", destination());
    ASSERT_FALSE(absent);
    EXPECT_EQ(absent.error().code, ErrorCode::kOpenFailed);
}

TEST_F(DamageTest, AnArchiveOfNothingIsAnArchive) {
    expectTaken(ZipBuilder(), {});
    const auto archive = Reader::open(archivePath());
    ASSERT_TRUE(archive);
    EXPECT_EQ(archive->size(), 0U);
}

}  // namespace
}  // namespace pellumar::archive
