#include <array>

#include "archive/ExtractionTest.h"
#include "archive/base/Crc32.h"

namespace pellumar::archive {
namespace {

class UnsafeNamesTest : public ExtractionTest, public testing::WithParamInterface<std::string> {};

TEST_P(UnsafeNamesTest, AreRefusedBeforeAnythingIsWritten) {
    const std::string& name = GetParam();
    for (const char* disguise : {"", "folder"}) {
        ZipBuilder zip;
        zip.file("good.txt", "good");
        zip.add(*disguise != '\0' ? folder(name) : stored(name, "evil"));
        zip.file("also good.txt", "good");
        expectRefused(zip, ErrorCode::kUnsafeName, name);
    }
}

INSTANTIATE_TEST_SUITE_P(Names,
                         UnsafeNamesTest,
                         testing::Values("..",
                                         "../x",
                                         "a/../../x",
                                         "a/..",
                                         "a/../b",
                                         "/etc/x",
                                         "/",
                                         "//server/share",
                                         "\\x",
                                         "..\\x",
                                         "a\\..\\x",
                                         "a/..\\../x",
                                         "\\\\server\\share",
                                         "C:\\x",
                                         "c:/x",
                                         "z:x",
                                         "C:",
                                         "",
                                         std::string("a\0b", 3),
                                         std::string("a.txt\0/../x", 11),
                                         std::string("..\0", 3)));

class NameFormsTest : public ExtractionTest {};

// A checker that looks at the header's name alone would let this pass.
TEST_F(NameFormsTest, UnicodePathIsJudgedToo) {
    const std::string_view name = "safe";
    const std::uint32_t checksum =
        crc32(kCrc32OfNothing, {reinterpret_cast<const std::uint8_t*>(name.data()), name.size()});
    const std::string field = test::extraField(
        0x7075, std::string("\x01", 1) + test::littleEndian(checksum, 4) + "../out of it");
    expectRefused(ZipBuilder().add(stored("safe", "x").with(&ZipHeader::extra, field)),
                  ErrorCode::kUnsafeName,
                  "../out of it");
}

TEST_F(NameFormsTest, SeparatorsAndDotsAreNormalised) {
    ZipBuilder zip;
    zip.file("a\\b.txt", "1").file("./c.txt", "2").file("d//e/./f.txt", "3").add(folder("g\\"));
    zip.add(folder("./"));
    expectTaken(zip, {"a/", "a/b.txt", "c.txt", "d/", "d/e/", "d/e/f.txt", "g/"});
}

TEST_F(NameFormsTest, HarmlessOddNamesAreTaken) {
    expectTaken(ZipBuilder()
                    .file("...", "")
                    .file("..a", "")
                    .file("a..", "")
                    .file(" ", "")
                    .file("ab:c", "")
                    .file("-rf", "")
                    .file("~", "")
                    .file("new\nline", "")
                    .file("*?\"<>|", ""),
                {" ", "*?\"<>|", "-rf", "...", "..a", "a..", "ab:c", "new\nline", "~"});
}

TEST_F(NameFormsTest, LongNamesAreTakenUpToTheLimitsAndRefusedBehindThem) {
    const std::string longest(255, 'n');
    expectTaken(ZipBuilder().file(longest, "x"), {longest});
    expectRefused(ZipBuilder().file("good", "").file("a/" + longest + "n/b", "x"),
                  ErrorCode::kNameTooLong,
                  "a/" + longest + "n/b");

    // With the destination, separator and NUL, a path has to fit into PATH_MAX.
    std::string deep;
    const std::size_t room = 4096 - 2 - destination().native().size();
    while (deep.size() + 201 < room) {
        deep += std::string(200, 'd') + "/";
    }
    deep += std::string(room - deep.size(), 'e');
    const auto report = unzip(ZipBuilder().file(deep, "x"));
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(text(deep), "x");
    expectRefused(ZipBuilder().file(deep + "e", "x"), ErrorCode::kNameTooLong, deep + "e");
}

}  // namespace
}  // namespace pellumar::archive
