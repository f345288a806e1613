#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive {

using test::deflated;
using test::folder;
using test::packed;
using test::prose;
using test::readText;
using test::stored;
using test::symbolicLink;
using test::ZipBuilder;
using test::ZipEntry;
using test::ZipHeader;
using Paths = std::vector<std::string>;

// Unpacks archives that a test builds. The destination has a neighbour, so that anything written
// outside it shows.
class ExtractionTest : public testing::Test {
  protected:
    ExtractionTest();

    // Unpacks into an empty destination, and checks that nothing around it changed.
    Result<UnzipReport> unzip(const ZipBuilder& zip, bool skipCrc32 = false);
    Result<UnzipReport> unzipBytes(const std::string& archive, bool skipCrc32 = false);

    // What the destination holds: sorted paths, those of folders with "/" behind, of links with
    // "@".
    [[nodiscard]] Paths listing() const;
    [[nodiscard]] std::filesystem::path out(const std::string& path) const {
        return destination() / path;
    }
    [[nodiscard]] std::string text(const std::string& path) const { return readText(out(path)); }
    [[nodiscard]] struct stat status(const std::string& path) const;
    [[nodiscard]] mode_t permissions(const std::string& path) const {
        return status(path).st_mode & 07777U;
    }

    void expectTaken(const ZipBuilder& zip, const Paths& expected);
    // Refused with that reason, told of that entry, and before anything was written.
    void expectRefused(const ZipBuilder& zip, ErrorCode code, const std::string& entry);
    // The job fails with that reason, and no file stands under the entry's name.
    void expectFailed(const ZipBuilder& zip, ErrorCode code, const std::string& entry);

    [[nodiscard]] std::filesystem::path archivePath() const { return home_ / "archive.zip"; }
    [[nodiscard]] std::filesystem::path destination() const { return home_ / "out"; }
    [[nodiscard]] const test::TemporaryFolder& home() const { return home_; }

  private:
    test::TemporaryFolder home_;
};

// How often each kind of warning came up.
[[nodiscard]] std::size_t countOf(const Warnings& warnings, WarningCode code);

// A test's name from its parameter's `label`.
template <typename Parameter>
std::string labelOf(const testing::TestParamInfo<Parameter>& info) {
    return info.param.label;
}

}  // namespace pellumar::archive
