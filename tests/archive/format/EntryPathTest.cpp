#include "archive/format/EntryPath.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pellumar::archive {
namespace {

using namespace std::string_literals;

TEST(EntryPath, SafeNamesAreNormalised) {
    struct Case {
        std::string name;
        std::string path;
        bool isFolder;
    };
    const std::vector<Case> cases = {{"a.txt", "a.txt", false},
                                     {"a/b/c", "a/b/c", false},
                                     {"a/", "a", true},
                                     {"a\\b", "a/b", false},
                                     {"a\\b\\", "a/b", true},
                                     {"./a//./b/", "a/b", true},
                                     {"./", "", true},
                                     {"..a/b..", "..a/b..", false},
                                     {"a/...", "a/...", false},
                                     {" ", " ", false},
                                     {"ab:c", "ab:c", false}};
    for (const Case& sample : cases) {
        std::string storage;
        const auto judged = judgeEntryName(sample.name, storage);
        ASSERT_TRUE(judged) << sample.name;
        EXPECT_EQ(judged->path, sample.path) << sample.name;
        EXPECT_EQ(judged->isFolder, sample.isFolder) << sample.name;
    }
}

TEST(EntryPath, NamesThatLeadElsewhereAreRefused) {
    for (const std::string& name : {""s,
                                    "/etc/passwd"s,
                                    "\\\\server\\share"s,
                                    ".."s,
                                    "../a"s,
                                    "a/../b"s,
                                    "a\\..\\..\\b"s,
                                    "a/.."s,
                                    "C:\\a"s,
                                    "c:a"s,
                                    "a\0b"s}) {
        std::string storage;
        const auto judged = judgeEntryName(name, storage);
        ASSERT_FALSE(judged) << name;
        EXPECT_EQ(judged.error().code, ErrorCode::kUnsafeName);
    }
}

}  // namespace
}  // namespace pellumar::archive
