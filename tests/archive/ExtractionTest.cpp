#include "archive/ExtractionTest.h"

#include <algorithm>

namespace pellumar::archive {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNeighbour = "not to be touched";

void clear(const fs::path& folder) {
    std::error_code ignored;
    for (fs::recursive_directory_iterator it(folder, ignored), end; !ignored && it != end;
         it.increment(ignored)) {
        if (it->is_directory() && !it->is_symlink()) {
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add);
        }
    }
    fs::remove_all(folder);
}

Paths listingOf(const fs::path& folder) {
    Paths paths;
    for (const auto& item : fs::recursive_directory_iterator(folder)) {
        const char* mark = item.is_symlink() ? "@" : item.is_directory() ? "/" : "";
        paths.push_back(item.path().lexically_relative(folder).native() + mark);
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

}  // namespace

ExtractionTest::ExtractionTest() {
    test::writeFile(home_ / "neighbour", std::string_view(kNeighbour));
}

Result<UnzipReport> ExtractionTest::unzip(const ZipBuilder& zip, bool skipCrc32) {
    return unzipBytes(zip.build(), skipCrc32);
}

Result<UnzipReport> ExtractionTest::unzipBytes(const std::string& archive, bool skipCrc32) {
    test::writeFile(archivePath(), archive);
    clear(destination());
    fs::create_directory(destination());
    auto report = unzipItem(archivePath(), destination(), skipCrc32);
    Paths around;
    for (const auto& item : fs::directory_iterator(home_.path())) {
        around.push_back(item.path().filename());
    }
    std::sort(around.begin(), around.end());
    EXPECT_EQ(around, (Paths{"archive.zip", "neighbour", "out"}));
    EXPECT_EQ(readText(home_ / "neighbour"), kNeighbour);
    return report;
}

Paths ExtractionTest::listing() const {
    return listingOf(destination());
}

struct stat ExtractionTest::status(const std::string& path) const {
    struct stat status {};
    EXPECT_EQ(::lstat(out(path).c_str(), &status), 0) << path;
    return status;
}

void ExtractionTest::expectTaken(const ZipBuilder& zip, const Paths& expected) {
    const auto report = unzip(zip);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(listing(), expected);
}

void ExtractionTest::expectRefused(const ZipBuilder& zip,
                                   ErrorCode code,
                                   const std::string& entry) {
    const auto report = unzip(zip);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, code) << report.error().describe();
    EXPECT_EQ(report.error().entry, entry);
    EXPECT_EQ(listing(), Paths());
}

void ExtractionTest::expectFailed(const ZipBuilder& zip, ErrorCode code, const std::string& entry) {
    const auto report = unzip(zip);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, code) << report.error().describe();
    EXPECT_EQ(report.error().entry, entry);
    EXPECT_FALSE(fs::exists(fs::symlink_status(out(entry))));
}

std::size_t countOf(const Warnings& warnings, WarningCode code) {
    return static_cast<std::size_t>(
        std::count_if(warnings.kept().begin(), warnings.kept().end(), [&](const Warning& w) {
            return w.code == code;
        }));
}

}  // namespace pellumar::archive
