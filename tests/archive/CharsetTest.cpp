#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class CharsetTest : public ExtractionTest {};

TEST_F(CharsetTest, LegacyNamesComeOutInTheirLetters) {
    // Shift-JIS, where the second byte of two letters is a backslash in ASCII.
    const auto report = unzip(ZipBuilder()
                                  .file("\x8E\xCA\x90\x5E/\x94\x4C.jpg", "1")
                                  .file("\x94\x5C\x97\xCD\x95\x5C.xls", "2")
                                  .file("\x8E\xCA\x90\x5E\\ascii.txt", "3"));
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(listing(), (Paths{"写真/", "写真/ascii.txt", "写真/猫.jpg", "能力表.xls"}));
    EXPECT_EQ(countOf(report->warnings, WarningCode::kLegacyCharset), 3U);
}

TEST_F(CharsetTest, Utf8NeedsNoVote) {
    const auto report = unzip(ZipBuilder()
                                  .add(stored("flagged/Größe", "").with(&ZipHeader::flags, 0x800))
                                  .file("unflagged/猫", ""));
    ASSERT_TRUE(report);
    EXPECT_EQ(listing(), (Paths{"flagged/", "flagged/Größe", "unflagged/", "unflagged/猫"}));
    EXPECT_TRUE(report->warnings.empty());
}

TEST_F(CharsetTest, EntriesTellTheirNamesWithoutUnpacking) {
    ZipBuilder().file("\x8E\xE2\xE7\xA5\xE2\\\xAF\xAB\xA0\xAD", "").writeTo(archivePath());
    const auto archive = Reader::open(archivePath());
    ASSERT_TRUE(archive);
    EXPECT_EQ((*archive->begin()).path, "Отчет/план");
    EXPECT_EQ(countOf(archive->warnings(), WarningCode::kLegacyCharset), 1U);
}

}  // namespace
}  // namespace pellumar::archive
