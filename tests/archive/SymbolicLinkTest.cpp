#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

struct Link {
    std::string name;
    std::string target;
};

struct LinkCase {
    const char* label;
    std::vector<Link> links;
    std::string refused;  // which one
};

class LinksThatLeaveTest : public ExtractionTest, public testing::WithParamInterface<LinkCase> {};

TEST_P(LinksThatLeaveTest, AreRefusedBeforeAnythingIsWritten) {
    ZipBuilder zip;
    zip.file("d/e/x", "data");
    for (const Link& link : GetParam().links) {
        zip.add(symbolicLink(link.name, link.target));
    }
    expectRefused(zip, ErrorCode::kUnsafeLink, GetParam().refused);
}

INSTANTIATE_TEST_SUITE_P(
    Links,
    LinksThatLeaveTest,
    testing::Values(
        LinkCase{"Absolute", {{"l", "/etc/passwd"}}, "l"},
        LinkCase{"Root", {{"l", "/"}}, "l"},
        LinkCase{"Parent", {{"l", ".."}}, "l"},
        LinkCase{"ParentFromAFolder", {{"d/l", "../.."}}, "d/l"},
        LinkCase{"OutAndBackIn", {{"l", "../out/d"}}, "l"},
        LinkCase{"DotsInTheMiddle", {{"l", "d/./e//../../../x"}}, "l"},
        LinkCase{"Empty", {{"l", ""}}, "l"},
        LinkCase{"TooLong", {{"l", std::string(4096, 'a')}}, "l"},
        // Each is harmless alone; behind the first, ".." of the second leaves.
        LinkCase{"ThroughAnotherLink", {{"d/e/f", "../.."}, {"g", "d/e/f/../x"}}, "g"},
        LinkCase{"ThroughALaterLink", {{"a", "z/.."}, {"d/e/up", "../../d"}, {"z", "."}}, "a"},
        LinkCase{"ThroughTwo",
                 {{"d/here", "."}, {"d/e/up", "../here/.."}, {"l", "d/e/up/.."}},
                 "l"},
        // Where case does not count, "F" is the link, and above what it leads to is outside.
        LinkCase{"ThroughWhatCaseMayHide", {{"d/e/f", "../.."}, {"l", "d/e/F/../x"}}, "l"},
        LinkCase{"WalkedLoop", {{"a", "b/../c"}, {"b", "b"}}, "a"},
        // Up to the NUL is what the system would take.
        LinkCase{"BehindANul", {{"l", std::string("..\0/x", 5)}}, "l"},
        LinkCase{"NulAtTheEnd", {{"d/l", std::string("../..\0", 6)}}, "d/l"}),
    labelOf<LinkCase>);

class SymbolicLinkTest : public ExtractionTest {};

TEST_F(SymbolicLinkTest, StaysInsideAndIsTaken) {
    ZipBuilder zip;
    zip.add(symbolicLink("first", "d/e/file"))  // what it points to comes later
        .add(symbolicLink("d/up", "../first"))
        .add(symbolicLink("d/e/around", "../../d/e/../e/file"))
        .add(symbolicLink("folder", "d/e"))
        .add(symbolicLink("dangling", "nowhere/to/be/seen"))
        .add(symbolicLink("here", "."))
        .add(deflated("d/e/file", "data"));
    expectTaken(zip,
                {"d/",
                 "d/e/",
                 "d/e/around@",
                 "d/e/file",
                 "d/up@",
                 "dangling@",
                 "first@",
                 "folder@",
                 "here@"});
    EXPECT_EQ(text("d/up"), "data");
    EXPECT_EQ(text("d/e/around"), "data");
    EXPECT_EQ(std::filesystem::read_symlink(out("dangling")), "nowhere/to/be/seen");
}

TEST_F(SymbolicLinkTest, LongestTargetIsTaken) {
    const std::string target(4095, 'a');
    expectTaken(ZipBuilder().add(symbolicLink("l", target)), {"l@"});
    EXPECT_EQ(std::filesystem::read_symlink(out("l")), target);
}

// The classic attack: a link first, then a file behind it.
TEST_F(SymbolicLinkTest, NothingIsWrittenThroughALink) {
    for (const char* target : {"d", "/tmp", "nowhere"}) {
        expectRefused(ZipBuilder().add(folder("d/")).add(symbolicLink("l", target)).file("l/x", ""),
                      ErrorCode::kConflictingNames,
                      "l/x");
        expectRefused(ZipBuilder().file("l/x", "").add(symbolicLink("l", target)),
                      ErrorCode::kConflictingNames,
                      "l/x");
    }
}

TEST_F(SymbolicLinkTest, NothingIsWrittenThroughALinkThatStandsThere) {
    std::filesystem::create_directory(destination());
    std::filesystem::create_directory(home() / "elsewhere");
    std::filesystem::create_directory_symlink("../elsewhere", out("l"));
    std::filesystem::create_symlink("../elsewhere/new", out("f"));
    ZipBuilder().file("l/x", "evil").writeTo(archivePath());
    EXPECT_FALSE(unzipItem(archivePath(), destination()));
    ZipBuilder().file("f", "evil").writeTo(archivePath());
    const auto onFile = unzipItem(archivePath(), destination());
    ASSERT_FALSE(onFile);
    EXPECT_EQ(onFile.error().code, ErrorCode::kAlreadyExists);
    EXPECT_TRUE(std::filesystem::is_empty(home() / "elsewhere"));
}

TEST_F(SymbolicLinkTest, AllAreMadeOrNone) {
    std::filesystem::create_directory(destination());
    std::filesystem::create_symlink("elsewhere", out("m"));
    ZipBuilder()
        .file("d/x", "data")
        .add(symbolicLink("d/l", "x"))
        .add(symbolicLink("m", "d"))
        .add(symbolicLink("n", "d"))
        .writeTo(archivePath());
    const auto report = unzipItem(archivePath(), destination());
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().entry, "m");
    EXPECT_EQ(listing(), (Paths{"d/", "d/x", "m@"}));
    EXPECT_EQ(std::filesystem::read_symlink(out("m")), "elsewhere");
}

// Following each would take the square of their length: the kernel gives up after 40.
TEST_F(SymbolicLinkTest, WalkingLongChainsIsRefused) {
    ZipBuilder zip;
    zip.file("l0", "end");
    for (int i = 1; i <= 60; ++i) {
        zip.add(symbolicLink("l" + std::to_string(i), "l" + std::to_string(i - 1)));
    }
    zip.add(symbolicLink("walker", "l60/../x"));
    expectRefused(zip, ErrorCode::kUnsafeLink, "walker");
}

}  // namespace
}  // namespace pellumar::archive
