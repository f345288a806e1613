#include <tuple>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class DescriptorTest : public ExtractionTest,
                       public testing::WithParamInterface<std::tuple<bool, bool, std::size_t>> {
  protected:
    [[nodiscard]] ZipEntry entry(std::size_t size) const { return deflated("entry", prose(size)); }
};

INSTANTIATE_TEST_SUITE_P(Forms,
                         DescriptorTest,
                         testing::Combine(testing::Bool(),
                                          testing::Bool(),
                                          testing::Values(1, 300, 3000000)));

TEST_P(DescriptorTest, IsTakenWhereItAgrees) {
    const auto [signature, wide, size] = GetParam();
    const ZipEntry storedToo = stored("stored", prose(size)).described(signature, wide);
    ZipEntry known = deflated("known", prose(size));
    const ZipHeader values = known.local;
    known.described(signature, wide);
    known.local.crc32 = values.crc32;
    known.local.compressedSize = values.compressedSize;
    known.local.uncompressedSize = values.uncompressedSize;
    expectTaken(ZipBuilder()
                    .add(entry(size).described(signature, wide))
                    .add(storedToo)
                    .add(known)
                    .add(deflated("empty", "").described(signature, wide))
                    .file("last", "x"),
                {"empty", "entry", "known", "last", "stored"});
    EXPECT_EQ(text("entry"), prose(size));
    EXPECT_EQ(text("stored"), prose(size));
}

TEST_P(DescriptorTest, IsRefusedWhereItDisagrees) {
    const auto [signature, wide, size] = GetParam();
    const std::size_t fields = signature ? 4 : 0;
    const std::size_t width = wide ? 8 : 4;
    for (const std::size_t at : {fields, fields + 4, fields + 4 + width}) {
        ZipEntry wrong = entry(size).described(signature, wide);
        wrong.descriptor[at] = static_cast<char>(wrong.descriptor[at] ^ 1);
        expectFailed(
            ZipBuilder().add(wrong).file("last", "x"), ErrorCode::kHeaderMismatch, "entry");
    }
    ZipEntry missing = entry(size).described(signature, wide);
    missing.descriptor.clear();
    expectFailed(ZipBuilder().add(missing).file("last", "x"), ErrorCode::kHeaderMismatch, "entry");
}

class DescriptorOddityTest : public ExtractionTest {};

// Its checksum is the signature's own number, so that both forms seem to begin alike.
TEST_F(DescriptorOddityTest, AChecksumLikeTheSignatureIsNoSignature) {
    ZipEntry entry = stored("entry", "data").with(&ZipHeader::crc32, 0x08074B50U);
    ZipBuilder zip;
    zip.add(entry.described(false, false));
    ASSERT_TRUE(unzip(zip, true));
    EXPECT_EQ(text("entry"), "data");
}

}  // namespace
}  // namespace pellumar::archive
