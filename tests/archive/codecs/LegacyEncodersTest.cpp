#include "LegacyEncoders.h"

#include <gtest/gtest.h>

#include "archive/Archive.h"
#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBuilder.h"

namespace pellumar::archive::test {

namespace {

Bytes legacyPlain() {
    Bytes plain = words(700000, 20);
    plain.insert(plain.begin(), 100, 0);
    plain.insert(plain.end(), 5000, 0);
    const Bytes more = runs(50000, 21);
    plain.insert(plain.end(), more.begin(), more.end());
    return plain;
}

// Unpacks an archive of the compressed data, and asks other programs for their opinion.
void expectReadable(std::uint16_t method,
                    std::uint16_t flags,
                    const Bytes& compressed,
                    const Bytes& plain,
                    bool othersKnowIt) {
    const pellumar::test::TemporaryFolder home;
    auto entry = pellumar::test::packed("entry",
                                        method,
                                        std::string(compressed.begin(), compressed.end()),
                                        std::string(plain.begin(), plain.end()));
    pellumar::test::ZipBuilder()
        .add(entry.with(&pellumar::test::ZipHeader::flags, flags))
        .writeTo(home / "made.zip");
    const auto report = unzipItem(home / "made.zip", home / "out");
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_TRUE(pellumar::test::readFile(home / "out/entry") == plain);
    for (const std::vector<std::string>& program :
         {std::vector<std::string>{"unzip", "-tqq"}, {"7zz", "t"}}) {
        auto command = program;
        command.push_back((home / "made.zip").native());
        const auto result = pellumar::test::runProcess(command);
        EXPECT_EQ(result.exitCode == 0, othersKnowIt) << program.front() << result.output;
    }
}

}  // namespace

TEST(LegacyMethods, ShrinkIsReadByUsAndOthers) {
    const Bytes plain = legacyPlain();
    expectReadable(1, 0, shrink(plain), plain, true);
}

// No other program at hand reads it.
TEST(LegacyMethods, ReduceIsReadByUs) {
    const Bytes plain = legacyPlain();
    for (unsigned factor = 1; factor <= 4; ++factor) {
        expectReadable(
            static_cast<std::uint16_t>(1 + factor), 0, reduce(plain, factor), plain, false);
    }
}

TEST(LegacyMethods, ImplodeIsReadByUsAndOthers) {
    const Bytes plain = legacyPlain();
    for (const bool literals : {true, false}) {
        for (const bool large : {true, false}) {
            const ImplodeOptions options{.literalCode = literals, .largeWindow = large};
            expectReadable(6, options.flags(), implode(plain, options), plain, true);
        }
    }
}

}  // namespace pellumar::archive::test
