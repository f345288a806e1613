#include "archive/ExtractionTest.h"
#include "archive/writing/ArchiveWriter.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

struct Way {
    const char* label;
    NewEncryption encryption;
    const char* said;  // by 7-Zip, of the method
};

// What we encrypt, opened by others and by ourselves.
class EncryptedWritingTest : public ExtractionTest, public testing::WithParamInterface<Way> {
  protected:
    static constexpr const char* kPassword = "ge heim-ß";

    EncryptedWritingTest() {
        fs::create_directories(home() / "tree/folder");
        put("tree/empty", "");
        put("tree/small", "small");
        put("tree/folder/Größe", prose(200000));
        put("tree/large", prose(5000000, 2));
    }

    void put(const std::string& path, const std::string& content) {
        pellumar::test::writeFile(home() / path, content);
        expected_.emplace_back(path, content);
    }

    void pack() const {
        auto writer = ArchiveWriter::create(archivePath(), {.replace = true, .threads = 2});
        ASSERT_TRUE(writer);
        const auto password = std::make_shared<const Password>(kPassword);
        std::vector<ArchiveWriter::Source> sources;
        sources.emplace_back("tree/folder", home() / "tree/folder");
        for (const auto& [path, content] : expected_) {
            sources.emplace_back(path, home() / path);
            sources.back().options.password = password;
            sources.back().options.encryption = GetParam().encryption;
        }
        (*writer)->compressAhead(sources);
        for (const ArchiveWriter::Source& source : sources) {
            const auto added = (*writer)->addEntry(source);
            ASSERT_TRUE(added) << added.error().describe();
        }
        ASSERT_TRUE((*writer)->close());
    }

    void expectAll(const fs::path& folder) const {
        for (const auto& [path, content] : expected_) {
            EXPECT_EQ(readText(folder / path), content) << path;
        }
    }

    // The command, in the shell and in an empty folder, with the archive's path behind.
    void expectOpens(const std::string& command) const {
        fs::remove_all(home() / "theirs");
        fs::create_directory(home() / "theirs");
        const auto result = pellumar::test::runProcess(
            {"sh", "-c", command + " " + archivePath().native()}, home() / "theirs");
        EXPECT_EQ(result.exitCode, 0) << command << ": " << result.output;
        expectAll(home() / "theirs");
    }

    std::vector<std::pair<std::string, std::string>> expected_;
};

TEST_P(EncryptedWritingTest, OthersOpenIt) {
    pack();
    expectOpens(std::string("7zz x -bd '-p") + kPassword + "'");
    expectOpens(std::string("bsdtar --passphrase '") + kPassword + "' -xf");
    if (GetParam().encryption == NewEncryption::kTraditional) {
        expectOpens(std::string("unzip -qP '") + kPassword + "'");
        expectOpens(std::string("python3 -c 'import sys, zipfile; zipfile.ZipFile(sys.argv[1])"
                                ".extractall(pwd=\"") +
                    kPassword + "\".encode())'");
    }
    const auto said = pellumar::test::runProcess({"7zz", "l", "-slt", archivePath().native()});
    EXPECT_NE(said.output.find(std::string("Method = ") + GetParam().said), std::string::npos)
        << said.output;
}

TEST_P(EncryptedWritingTest, WeOpenItWithThePasswordAlone) {
    pack();
    const Password right(kPassword);
    const auto report = unzipItem(archivePath(), destination(), false, &right);
    ASSERT_TRUE(report) << report.error().describe();
    expectAll(destination());
    fs::remove_all(destination());
    const Password wrong("geheim");
    EXPECT_EQ(unzipItem(archivePath(), destination(), false, &wrong).error().code,
              ErrorCode::kWrongPassword);
    EXPECT_EQ(unzipItem(archivePath(), destination()).error().code, ErrorCode::kEncrypted);
    EXPECT_EQ(listing(), Paths());
}

TEST_P(EncryptedWritingTest, NoTwoEntriesAreEncryptedAlike) {
    put("tree/small again", "small");
    pack();
    const std::string once = readText(archivePath());
    pack();
    const std::string twice = readText(archivePath());
    EXPECT_EQ(once.size(), twice.size());
    std::vector<std::string> ciphered;
    for (const std::string& bytes : {once, twice}) {
        pellumar::test::writeFile(archivePath(), bytes);
        const auto archive = Reader::open(archivePath());
        ASSERT_TRUE(archive);
        for (const Entry& entry : *archive) {
            EXPECT_EQ(entry.encrypted, entry.type == EntryType::kFile) << entry.path;
            if (entry.path.starts_with("tree/small")) {
                const std::size_t name =
                    static_cast<std::uint8_t>(bytes[entry.localHeaderOffset + 26]);
                const std::size_t extra =
                    static_cast<std::uint8_t>(bytes[entry.localHeaderOffset + 28]);
                ciphered.push_back(bytes.substr(entry.localHeaderOffset + 30 + name + extra,
                                                static_cast<std::size_t>(entry.compressedSize)));
            }
        }
    }
    ASSERT_EQ(ciphered.size(), 4U);
    std::sort(ciphered.begin(), ciphered.end());
    EXPECT_EQ(std::unique(ciphered.begin(), ciphered.end()), ciphered.end());
}

INSTANTIATE_TEST_SUITE_P(
    Ways,
    EncryptedWritingTest,
    testing::Values(Way{"Aes256", NewEncryption::kAes256, "AES-256 Deflate"},
                    Way{"Aes192", NewEncryption::kAes192, "AES-192 Deflate"},
                    Way{"Aes128", NewEncryption::kAes128, "AES-128 Deflate"},
                    Way{"Traditional", NewEncryption::kTraditional, "ZipCrypto Deflate"}),
    labelOf<Way>);

}  // namespace
}  // namespace pellumar::archive
