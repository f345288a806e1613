#include <functional>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class RefusalsTest : public ExtractionTest {};

TEST_F(RefusalsTest, EncryptionThatCannotBeReadIsRefused) {
    // Strong, and the masked headers of an encrypted directory.
    for (const unsigned flags : {0x41U, 0x2001U}) {
        expectRefused(ZipBuilder()
                          .file("first", "x")
                          .add(stored("secret", "data").with(&ZipHeader::flags, flags)),
                      ErrorCode::kEncrypted,
                      "secret");
    }
    // The method of WinZip's AES without the field that tells more.
    expectRefused(
        ZipBuilder().add(
            stored("secret", "data").with(&ZipHeader::method, 99).with(&ZipHeader::flags, 1)),
        ErrorCode::kEncrypted,
        "secret");
}

TEST_F(RefusalsTest, UnknownMethodsAreRefused) {
    for (const unsigned method : {7U, 10U, 18U, 96U, 97U, 1000U, 65535U}) {
        expectRefused(ZipBuilder()
                          .file("first", "x")
                          .add(stored("entry", "data").with(&ZipHeader::method, method)),
                      ErrorCode::kUnsupportedMethod,
                      "entry");
    }
    expectRefused(ZipBuilder().add(stored("patch", "data").with(&ZipHeader::flags, 0x20)),
                  ErrorCode::kUnsupportedMethod,
                  "patch");
}

TEST_F(RefusalsTest, SeveralDisksAreRefused) {
    const std::vector<std::function<void(ZipBuilder&)>> splits = {
        [](ZipBuilder& z) { z.end.directoryDisk = 1; },
        [](ZipBuilder& z) {
            z.end.entriesOnDisk = 1;
            z.end.entries = 2;
        },
        [](ZipBuilder& z) {
            z.zip64 = true;
            z.zip64End.disk = 1;
            z.end.disk = 0xFFFF;
        },
        [](ZipBuilder& z) {
            z.zip64 = true;
            z.locatorDisks = 2;
        }};
    for (const auto& split : splits) {
        ZipBuilder zip;
        zip.file("a", "x").file("b", "y");
        split(zip);
        expectRefused(zip, ErrorCode::kMultipleDisks, "");
    }
    ZipEntry onAnother = stored("b", "y");
    onAnother.central.disk = 1;
    expectRefused(ZipBuilder().file("a", "x").add(onAnother), ErrorCode::kMultipleDisks, "b");
}

TEST_F(RefusalsTest, OpeningRefusesWhatUnpackingWould) {
    ZipBuilder().add(stored("secret", "data").with(&ZipHeader::flags, 0x41)).writeTo(archivePath());
    const auto archive = Reader::open(archivePath());
    ASSERT_TRUE(archive);
    EXPECT_TRUE((*archive)[0].encrypted);
    EXPECT_EQ((*archive)[0].fault, ErrorCode::kEncrypted);
    const auto fault = archive->firstFault();
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->entry, "secret");
    EXPECT_GT(fault->offset, 0U);
}

}  // namespace
}  // namespace pellumar::archive
