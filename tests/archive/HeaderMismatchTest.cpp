#include <functional>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

struct Mismatch {
    const char* label;
    std::function<void(ZipHeader&)> change;
};

class HeaderMismatchTest : public ExtractionTest, public testing::WithParamInterface<Mismatch> {};

TEST_P(HeaderMismatchTest, IsRefusedWhicheverHeaderIsRight) {
    for (const std::size_t size : {std::size_t{50}, std::size_t{3000000}}) {
        ZipEntry local = deflated("name", prose(size));
        GetParam().change(local.local);
        expectRefused(ZipBuilder().add(local), ErrorCode::kHeaderMismatch, "name");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Fields,
    HeaderMismatchTest,
    testing::Values(Mismatch{"Name", [](ZipHeader& h) { h.name = "nome"; }},
                    Mismatch{"LongerName", [](ZipHeader& h) { h.name = "name.exe"; }},
                    Mismatch{"UnsafeName", [](ZipHeader& h) { h.name = "../x"; }},
                    Mismatch{"NameCase", [](ZipHeader& h) { h.name = "Name"; }},
                    Mismatch{"Method", [](ZipHeader& h) { h.method = 0; }},
                    Mismatch{"CompressedSize", [](ZipHeader& h) { ++h.compressedSize; }},
                    Mismatch{"ZeroSize", [](ZipHeader& h) { h.compressedSize = 0; }},
                    Mismatch{"UncompressedSize", [](ZipHeader& h) { --h.uncompressedSize; }},
                    Mismatch{"Checksum", [](ZipHeader& h) { h.crc32 ^= 1U; }},
                    Mismatch{"EncryptedFlag", [](ZipHeader& h) { h.flags |= 1U; }},
                    Mismatch{"DescriptorThatIsNotThere", [](ZipHeader& h) { h.flags |= 8U; }}),
    labelOf<Mismatch>);

class LocalHeaderTest : public ExtractionTest {};

TEST_F(LocalHeaderTest, MustBeThere) {
    std::string archive = ZipBuilder().file("name", "data").build();
    archive[0] = 'Q';
    const auto report = unzipBytes(archive);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kHeaderMismatch);
    EXPECT_FALSE(std::filesystem::exists(out("name")));
}

// Times, versions, extra fields, the speed bits of the flags and the one that says that ASCII is
// UTF-8 differ in archives of good faith.
TEST_F(LocalHeaderTest, MayDifferWhereItDoesNotMatter) {
    ZipEntry entry = deflated("name", "data");
    entry.local.versionNeeded = 10;
    entry.local.time = 77;
    entry.local.flags |= 0x804U;
    entry.local.extra = test::extraField(0x5455, "\x01____");
    entry.central.comment = "of the entry";
    expectTaken(ZipBuilder().add(entry), {"name"});
}

}  // namespace
}  // namespace pellumar::archive
