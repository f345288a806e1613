#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class PrefixAndCommentTest : public ExtractionTest {
  protected:
    static ZipBuilder archive() {
        ZipBuilder zip;
        zip.add(deflated("a", prose(3000))).file("b", "data");
        return zip;
    }
};

TEST_F(PrefixAndCommentTest, BytesBeforeTheArchiveAreTakenWithAWarning) {
    for (const bool known : {true, false}) {
        ZipBuilder zip = archive();
        zip.prefix = "#!/bin/sh\nexec unpacker \"$0\"\n" + prose(100000);
        zip.offsetsKnowPrefix = known;
        const auto report = unzip(zip);
        ASSERT_TRUE(report) << report.error().describe();
        EXPECT_EQ(text("a"), prose(3000));
        EXPECT_EQ(listing(), (Paths{"a", "b"}));
        // Where the offsets count them in, they are not told from unused room.
        EXPECT_EQ(countOf(report->warnings, WarningCode::kBytesBeforeArchive), known ? 0U : 1U);
    }
}

TEST_F(PrefixAndCommentTest, GapsAreTaken) {
    ZipBuilder zip = archive();
    ZipEntry behindAGap = stored("c", "x");
    behindAGap.before = std::string(500, '\0');
    zip.add(behindAGap);
    zip.beforeDirectory = std::string(333, '\0');
    expectTaken(zip, {"a", "b", "c"});
}

TEST_F(PrefixAndCommentTest, CommentsAreTakenUpToTheLongest) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{1000}, std::size_t{65535}}) {
        ZipBuilder zip = archive();
        zip.comment = prose(size);
        const auto report = unzip(zip);
        ASSERT_TRUE(report) << report.error().describe();
        EXPECT_TRUE(report->warnings.empty());
    }
}

TEST_F(PrefixAndCommentTest, ASignatureInTheCommentIsNoEnd) {
    for (const std::string& lure : {std::string("PK\x05\x06"),
                                    "PK\x05\x06" + std::string(30, '\0'),
                                    ZipBuilder().build() + "x"}) {
        ZipBuilder zip = archive();
        zip.comment = "see: " + lure;
        expectTaken(zip, {"a", "b"});
    }
}

// Two readers of one file must not see two archives.
TEST_F(PrefixAndCommentTest, AnArchiveInTheCommentIsRefused) {
    ZipBuilder zip = archive();
    zip.comment = ZipBuilder().file("other", "evil").build();
    const auto report = unzip(zip);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kDamagedDirectory);
    EXPECT_EQ(listing(), Paths());
}

TEST_F(PrefixAndCommentTest, BytesBehindTheArchiveAreTakenWithAWarning) {
    ZipBuilder zip = archive();
    zip.suffix = std::string(1000, '\0');
    const auto report = unzip(zip);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(countOf(report->warnings, WarningCode::kBytesAfterArchive), 1U);
    EXPECT_EQ(listing(), (Paths{"a", "b"}));
}

TEST_F(PrefixAndCommentTest, ADirectoryThatDoesNotAddUpIsRefused) {
    const auto expectDamaged = [this](const ZipBuilder& zip) {
        const auto report = unzip(zip);
        ASSERT_FALSE(report);
        EXPECT_EQ(report.error().code, ErrorCode::kDamagedDirectory) << report.error().describe();
        EXPECT_EQ(listing(), Paths());
    };
    for (const std::uint64_t count : {0U, 1U, 3U, 60000U}) {
        ZipBuilder zip = archive();
        zip.end.entries = zip.end.entriesOnDisk = count;
        expectDamaged(zip);
    }
    for (const std::uint64_t size : {0U, 50U, 1000000U}) {
        ZipBuilder zip = archive();
        zip.end.directorySize = size;
        expectDamaged(zip);
    }
    ZipBuilder zip = archive();
    zip.end.directoryOffset = 100000;
    expectDamaged(zip);
}

}  // namespace
}  // namespace pellumar::archive
