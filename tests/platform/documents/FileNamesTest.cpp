#include "platform/documents/FileNames.h"

#include <gtest/gtest.h>

namespace pellumar::test {
namespace {

TEST(FileNamesTest, TheNumberStandsBeforeTheExtension) {
    EXPECT_EQ(numberedName("beach.jpg", 2), "beach (2).jpg");
    EXPECT_EQ(numberedName("src.tar.gz", 3), "src (3).tar.gz");
    EXPECT_EQ(numberedName("SRC.TAR.XZ", 2), "SRC (2).TAR.XZ");
    EXPECT_EQ(numberedName(".tar.gz", 2), ".tar (2).gz");
    EXPECT_EQ(numberedName("notes", 2), "notes (2)");
    EXPECT_EQ(numberedName(".profile", 2), ".profile (2)");
    EXPECT_EQ(numberedName(".config.json", 2), ".config (2).json");
    EXPECT_EQ(numberedName("release 1.2", 2, true), "release 1.2 (2)");
    EXPECT_EQ(numberedName("caf\xe9.txt", 10), "caf\xe9 (10).txt");
}

TEST(FileNamesTest, NumberedNamesAreNoLongerThanFileSystemsTake) {
    std::string letters;
    for (int i = 0; i < 125; ++i) {
        letters += "ä";
    }
    const std::string name = numberedName(letters + "x.jpg", 2);
    EXPECT_EQ(name, letters.substr(0, 246) + " (2).jpg");
    EXPECT_LE(numberedName(std::string(255, 'x'), 12345, true).size(), 255U);
}

TEST(FileNamesTest, NoTwoAreCalledTheSame) {
    DistinctNames names;
    EXPECT_EQ(names.take("beach.jpg", false), "beach.jpg");
    EXPECT_EQ(names.take("Beach.JPG", false), "Beach (2).JPG");
    EXPECT_EQ(names.take("beach.jpg", true), "beach.jpg (2)");
    EXPECT_EQ(names.take("beach (2).jpg", false), "beach (2) (2).jpg");
    EXPECT_EQ(names.take("beach.jpg", false), "beach (3).jpg");
    // One letter, written in two ways.
    EXPECT_EQ(names.take("\u00e9", false), "\u00e9");
    EXPECT_EQ(names.take("e\u0301", false), "e\u0301 (2)");
}

}  // namespace
}  // namespace pellumar::test
