#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class DuplicatesTest : public ExtractionTest {};

TEST_F(DuplicatesTest, TheLastWinsWithAnyNumberOfThreads) {
    ZipBuilder zip;
    for (int i = 0; i < 200; ++i) {
        // The first ones are larger and would be extracted first, or last.
        zip.add(deflated("same", prose(static_cast<std::size_t>(5000 - i), 1) + std::to_string(i)));
        zip.file("d\\same", std::to_string(i)).file("./d//same", std::to_string(1000 + i));
    }
    zip.file("other", "x");
    const std::string last = prose(5000 - 199, 1) + "199";
    zip.writeTo(archivePath());
    for (unsigned threads = 1; threads <= 8; ++threads) {
        auto reader = Reader::open(archivePath());
        ASSERT_TRUE(reader);
        const auto to = home() / ("out" + std::to_string(threads));
        const auto report = reader->extractAll(to, {.limits = {.threads = threads}});
        ASSERT_TRUE(report) << report.error().describe();
        EXPECT_EQ(readText(to / "same"), last);
        EXPECT_EQ(readText(to / "d/same"), "1199");
        EXPECT_EQ(report->entries, 4U);  // and the folder
        EXPECT_EQ(report->warnings.count(), 199U + 399U);
    }
}

TEST_F(DuplicatesTest, TheLastWinsAmongLinksAndFiles) {
    const auto report = unzip(ZipBuilder()
                                  .add(symbolicLink("a", "/etc/passwd"))
                                  .file("a", "file")
                                  .file("b", "file")
                                  .add(symbolicLink("b", "a")));
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(listing(), (Paths{"a", "b@"}));
    EXPECT_EQ(countOf(report->warnings, WarningCode::kDuplicatePath), 2U);
}

TEST_F(DuplicatesTest, AFolderTwiceIsNothingOdd) {
    const auto report =
        unzip(ZipBuilder().add(folder("d/", 0700)).file("d/x", "").add(folder("d/", 0750)));
    ASSERT_TRUE(report);
    EXPECT_TRUE(report->warnings.empty());
    EXPECT_EQ(permissions("d"), 0750U);
}

TEST_F(DuplicatesTest, AFileThatIsAlsoAFolderIsRefused) {
    expectRefused(ZipBuilder().file("a", "x").add(folder("a/")), ErrorCode::kConflictingNames, "a");
    expectRefused(ZipBuilder().add(folder("a/")).file("a", "x"), ErrorCode::kConflictingNames, "a");
    // Names between them in sorting order must not hide the conflict.
    expectRefused(ZipBuilder().file("a", "").file("a b", "").file("a-b/c", "").file("a/b/c", ""),
                  ErrorCode::kConflictingNames,
                  "a/b/c");
    expectRefused(ZipBuilder().file("a/b/c", "").file("a!", "").file("a\\b", ""),
                  ErrorCode::kConflictingNames,
                  "a/b/c");
}

TEST_F(DuplicatesTest, WhatStandsThereIsNotOverwritten) {
    std::filesystem::create_directory(destination());
    test::writeFile(out("mine"), std::string_view("mine"));
    ZipBuilder().file("mine", "theirs").writeTo(archivePath());
    const auto report = unzipItem(archivePath(), destination());
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kAlreadyExists);
    EXPECT_EQ(report.error().entry, "mine");
    EXPECT_EQ(text("mine"), "mine");
}

}  // namespace
}  // namespace pellumar::archive
