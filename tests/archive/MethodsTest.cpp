#include <zstd.h>

#include "archive/ExtractionTest.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

class MethodsTest : public ExtractionTest {
  protected:
    MethodsTest() {
        for (const auto& [name, data] : files()) {
            test::writeFile(home() / name, data);
        }
    }

    static std::vector<std::pair<std::string, std::string>> files() {
        return {{"empty", ""}, {"short", "short"}, {"long", prose(3000000)}};
    }

    // Runs a command that packs `files()` from the home folder, and unpacks what it made.
    void expectReadable(const std::vector<std::string>& command) {
        const auto made = test::runProcess(command, home().path());
        ASSERT_EQ(made.exitCode, 0) << made.output;
        const auto report = unzipItem(home() / "made.zip", destination());
        ASSERT_TRUE(report) << report.error().describe();
        for (const auto& [name, data] : files()) {
            EXPECT_EQ(text(name), data);
        }
    }

    std::uint16_t methodOfLongest() {
        auto archive = Reader::open(home() / "made.zip");
        EXPECT_TRUE(archive);
        for (const Entry& entry : *archive) {
            if (entry.path == "long") {
                return entry.method;
            }
        }
        return 0;
    }
};

struct SevenZipMethod {
    const char* label;
    std::uint16_t number;
};

class SevenZipMethodsTest : public MethodsTest,
                            public testing::WithParamInterface<SevenZipMethod> {};

TEST_P(SevenZipMethodsTest, IsRead) {
    expectReadable({"7zz",
                    "a",
                    "-tzip",
                    std::string("-mm=") + GetParam().label,
                    "made.zip",
                    "empty",
                    "short",
                    "long"});
    EXPECT_EQ(methodOfLongest(), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Methods,
                         SevenZipMethodsTest,
                         testing::Values(SevenZipMethod{"Copy", 0},
                                         SevenZipMethod{"Deflate", 8},
                                         SevenZipMethod{"Deflate64", 9},
                                         SevenZipMethod{"BZip2", 12},
                                         SevenZipMethod{"LZMA", 14},
                                         SevenZipMethod{"XZ", 95},
                                         SevenZipMethod{"PPMd", 98}),
                         labelOf<SevenZipMethod>);

TEST_F(MethodsTest, WhatPythonWritesIsRead) {
    for (const char* method : {"ZIP_BZIP2", "ZIP_LZMA"}) {
        std::filesystem::remove_all(destination());
        expectReadable({"python3",
                        "-c",
                        std::string("import zipfile\n"
                                    "with zipfile.ZipFile('made.zip', 'w', zipfile.") +
                            method + ") as z:\n for f in ('empty', 'short', 'long'): z.write(f)"});
    }
}

TEST_F(MethodsTest, ZstandardIsReadUnderBothNumbers) {
    for (const std::uint16_t method : {20, 93}) {
        ZipBuilder zip;
        for (const auto& [name, data] : files()) {
            std::string compressed(ZSTD_compressBound(data.size()), '\0');
            compressed.resize(
                ZSTD_compress(compressed.data(), compressed.size(), data.data(), data.size(), 3));
            zip.add(packed(name, method, compressed, data));
        }
        zip.writeTo(archivePath());
        std::filesystem::remove_all(destination());
        const auto report = unzipItem(archivePath(), destination());
        ASSERT_TRUE(report) << report.error().describe();
        for (const auto& [name, data] : files()) {
            EXPECT_EQ(text(name), data);
        }
    }
}

}  // namespace
}  // namespace pellumar::archive
