#include "archive/ExtractionTest.h"
#include "support/NamesWatch.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

struct EncryptingCommand {
    const char* label;
    const char* command;  // in the shell; makes made.zip of "small" and "large" with "geheim"
    bool hasCode;         // that tells damage for certain
};

class EncryptionTest : public ExtractionTest,
                       public testing::WithParamInterface<EncryptingCommand> {
  protected:
    EncryptionTest() {
        pellumar::test::writeFile(home() / "small", std::string_view("small"));
        pellumar::test::writeFile(home() / "large", prose(3000000));
        const auto made =
            pellumar::test::runProcess({"sh", "-c", GetParam().command}, home().path());
        EXPECT_EQ(made.exitCode, 0) << made.output;
    }

    Result<UnzipReport> unzipWith(const Password* password) const {
        std::filesystem::remove_all(destination());
        return unzipItem(home() / "made.zip", destination(), false, password);
    }

    // The archive holds an entry that is damaged: it does not stand under its name, not even until
    // that is found.
    void expectNeverStands(const std::string& entry, const std::string& damaged) const {
        pellumar::test::writeFile(home() / "made.zip", damaged);
        std::filesystem::remove_all(destination());
        std::filesystem::create_directory(destination());
        pellumar::test::NamesWatch watch(destination());
        ASSERT_TRUE(watch.isWatching());
        const auto report = unzipItem(home() / "made.zip", destination(), false, &right_);
        ASSERT_FALSE(report) << entry;
        EXPECT_EQ(report.error().entry, entry);
        EXPECT_EQ(watch.seen().count(entry), 0U) << entry;
    }

    const Password right_{"geheim"};
};

TEST_P(EncryptionTest, ThePasswordOpensIt) {
    const auto report = unzipWith(&right_);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(text("small"), "small");
    EXPECT_EQ(text("large"), prose(3000000));
}

// The header of traditional encryption may be checked by the time then as well.
TEST_P(EncryptionTest, TheLocalHeaderAloneMayTellOfADescriptor) {
    std::string bytes = readText(home() / "made.zip");
    for (std::size_t at = bytes.find("PK\1\2"); at != std::string::npos;
         at = bytes.find("PK\1\2", at + 4)) {
        bytes[at + 8] = static_cast<char>(bytes[at + 8] & ~8);
    }
    pellumar::test::writeFile(home() / "made.zip", bytes);
    const auto report = unzipWith(&right_);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(text("small"), "small");
    EXPECT_EQ(text("large"), prose(3000000));
}

TEST_P(EncryptionTest, WithoutThePasswordNothingIsWritten) {
    const auto without = unzipWith(nullptr);
    ASSERT_FALSE(without);
    EXPECT_EQ(without.error().code, ErrorCode::kEncrypted);
    EXPECT_EQ(listing(), Paths());
    // One in 256 wrong passwords passes traditional encryption's check, so several are tried on two
    // entries.
    for (const char* const word : {"", "Geheim", "geheim ", "x"}) {
        const Password wrong(word);
        const auto report = unzipWith(&wrong);
        ASSERT_FALSE(report);
        EXPECT_EQ(report.error().code, ErrorCode::kWrongPassword) << word;
        EXPECT_EQ(listing(), Paths());
    }
}

TEST_P(EncryptionTest, ItIsListedWithoutThePassword) {
    const auto archive = Reader::open(home() / "made.zip");
    ASSERT_TRUE(archive) << archive.error().describe();
    ASSERT_EQ(archive->size(), 2U);
    for (const Entry& entry : *archive) {
        EXPECT_TRUE(entry.encrypted);
        EXPECT_TRUE(entry.method == 0 || entry.method == 8) << entry.method;
        EXPECT_EQ(entry.uncompressedSize, entry.path == "small" ? 5U : 3000000U);
    }
}

TEST_P(EncryptionTest, DamageLeavesNoFile) {
    const auto archive = Reader::open(home() / "made.zip");
    ASSERT_TRUE(archive);
    for (const Entry& entry : *archive) {
        const std::string whole = readText(home() / "made.zip");
        std::string damaged = whole;
        const std::size_t header = 30 +
                                   static_cast<std::uint8_t>(whole[entry.localHeaderOffset + 26]) +
                                   static_cast<std::uint8_t>(whole[entry.localHeaderOffset + 28]);
        // Behind salt and check bytes, and before the code.
        damaged[entry.localHeaderOffset + header + entry.compressedSize - 11] ^= 0x10;
        const std::string path(entry.path);
        expectNeverStands(path, damaged);
        if (GetParam().hasCode) {
            damaged = whole;
            damaged[entry.localHeaderOffset + header + entry.compressedSize - 1] ^= 1;
            expectNeverStands(path, damaged);
            EXPECT_EQ(unzipWith(&right_).error().code, ErrorCode::kDamagedData) << path;
        }
        pellumar::test::writeFile(home() / "made.zip", whole);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Peers,
    EncryptionTest,
    testing::Values(
        EncryptingCommand{"Zip", "zip -qP geheim made.zip small large", false},
        EncryptingCommand{"ZipToPipe", "zip -qP geheim - small large | cat > made.zip", false},
        EncryptingCommand{"SevenZip",
                          "7zz a -tzip -pgeheim made.zip small large -mem=ZipCrypto",
                          false},
        EncryptingCommand{"SevenZipAes128",
                          "7zz a -tzip -pgeheim made.zip small large -mem=AES128",
                          true},
        EncryptingCommand{"SevenZipAes192",
                          "7zz a -tzip -pgeheim made.zip small large -mem=AES192",
                          true},
        EncryptingCommand{"SevenZipAes256",
                          "7zz a -tzip -pgeheim made.zip small large -mem=AES256",
                          true},
        EncryptingCommand{"Bsdtar",
                          "bsdtar --format zip --options zip:encryption=zipcrypt --passphrase "
                          "geheim -cf made.zip small large",
                          false},
        EncryptingCommand{"BsdtarAes128",
                          "bsdtar --format zip --options zip:encryption=aes128 --passphrase geheim "
                          "-cf made.zip small large",
                          true},
        EncryptingCommand{"BsdtarAes256",
                          "bsdtar --format zip --options zip:encryption=aes256 --passphrase geheim "
                          "-cf made.zip small large",
                          true}),
    labelOf<EncryptingCommand>);

}  // namespace
}  // namespace pellumar::archive
