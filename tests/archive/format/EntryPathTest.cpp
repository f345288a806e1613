#include "archive/format/EntryPath.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace pellumar::archive {
namespace {

// A "./" in front means nothing, but keeps a name from being told at a look. All names of up to six
// of the letters that matter.
TEST(EntryPathTest, JudgesAtALookAsComponentByComponent) {
    constexpr std::string_view kLetters("ab.:/\\\0", 7);
    constexpr std::size_t kLongest = 6;
    std::size_t names = 1;
    for (std::size_t length = 1; length <= kLongest; ++length) {
        names *= kLetters.size();
        for (std::size_t number = 0; number < names; ++number) {
            std::string name;
            for (std::size_t rest = number; name.size() < length; rest /= kLetters.size()) {
                name += kLetters[rest % kLetters.size()];
            }
            std::string ofName;
            std::string ofOther;
            const std::string behind = "./" + name;
            const auto judged = judgeEntryName(name, ofName);
            const auto other = judgeEntryName(behind, ofOther);
            const bool isAbsolute = name[0] == '/' || name[0] == '\\';
            const bool isDrive = name.size() > 1 && name[1] == ':' && name[0] >= 'a';
            ASSERT_EQ(judged.has_value(), other.has_value() && !isAbsolute && !isDrive) << name;
            if (judged) {
                ASSERT_EQ(judged->path, other->path) << name;
                ASSERT_EQ(judged->isFolder, other->isFolder) << name;
            }
        }
    }
}

}  // namespace
}  // namespace pellumar::archive
