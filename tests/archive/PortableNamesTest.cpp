#include <gtest/gtest.h>

#include "archive/Archive.h"
#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"

namespace pellumar::archive {
namespace {

// An archive with such a name as it is would be refused as a whole when it is read, by us and by
// others.
TEST(PortableNamesTest, NamesThatWouldLeadElsewhereAreChanged) {
    const std::vector<std::pair<std::string, std::string>> names = {{"C:notes", "C：notes"},
                                                                    {"..\\up", "..＼up"},
                                                                    {"folder\\", "folder＼"},
                                                                    {".\\first", ".＼first"},
                                                                    {"a:b/C:c", "a：b/C:c"},
                                                                    {"plain", "plain"},
                                                                    {"caf\xE9\\1", "caf\xE9_1"}};
    const test::TemporaryFolder home;
    auto made = Archive::open(home / "made.zip", AccessMode::kCreate);
    ASSERT_TRUE(made);
    std::filesystem::create_directory(home / "a:b");
    for (const auto& [path, name] : names) {
        test::writeFile(home / path, std::string_view(path));
        ASSERT_TRUE(made->addEntry(path, home.path(), CompressionMethod::kDeflate)) << path;
    }
    ASSERT_TRUE(made->close());
    EXPECT_EQ(made->warnings().count(), names.size() - 1);
    EXPECT_EQ(made->warnings().kept()[1].code, WarningCode::kNameMadePortable);
    EXPECT_EQ(made->warnings().kept()[1].entry, "..\\up");

    const auto report = unzipItem(home / "made.zip", home / "out");
    ASSERT_TRUE(report) << report.error().describe();
    for (std::size_t i = 0; i + 1 < names.size(); ++i) {
        EXPECT_EQ(test::readText(home / "out" / names[i].second), names[i].first);
    }
    EXPECT_NE(test::readText(home / "made.zip").find(names.back().second), std::string::npos);
    const auto others = test::runProcess({"unzip", "-tqq", (home / "made.zip").native()});
    EXPECT_EQ(others.exitCode, 0) << others.output;
}

}  // namespace
}  // namespace pellumar::archive
