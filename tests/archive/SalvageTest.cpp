#include "archive/Salvage.h"

#include <algorithm>
#include <map>

#include "archive/ExtractionTest.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;

class SalvageTest : public ExtractionTest {
  protected:
    SalvageReport salvageBytes(const std::string& archive, const SalvageOptions& options = {}) {
        test::writeFile(archivePath(), archive);
        fs::remove_all(destination());
        auto report = salvage(archivePath(), destination(), options);
        // Of what is cut off within its first header there is nothing.
        EXPECT_TRUE(report || report.error().code == ErrorCode::kNotAnArchive)
            << report.error().describe();
        return report ? *report : SalvageReport();
    }

    [[nodiscard]] static std::vector<ErrorCode> reasons(const SalvageReport& report) {
        std::vector<ErrorCode> all;
        for (const LostEntry& lost : report.lostEntries) {
            all.push_back(lost.reason);
        }
        return all;
    }
};

struct Maker {
    const char* label;
    const char* command;  // in the shell and in the folder of the sources; makes ../made.zip
};

// Archives of other programs, cut at many places and with damage anywhere: what lies wholly before
// the cut, or beside the damage, comes out.
class DamagedArchiveTest : public SalvageTest, public testing::WithParamInterface<Maker> {
  protected:
    // Where an entry's bytes are, header and descriptor included.
    struct Span {
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };

    DamagedArchiveTest() {
        for (const auto& [path, content] : contents_) {
            fs::create_directories((home() / "sources" / path).parent_path());
            test::writeFile(home() / "sources" / path, content);
        }
        const auto made = test::runProcess({"sh", "-c", GetParam().command}, home() / "sources");
        EXPECT_EQ(made.exitCode, 0) << made.output;
        bytes_ = readText(home() / "made.zip");
        const auto reader = Reader::open(home() / "made.zip");
        EXPECT_TRUE(reader);
        std::vector<std::uint64_t> starts;
        for (const Entry& entry : *reader) {
            starts.push_back(entry.localHeaderOffset);
        }
        starts.push_back(directory());
        std::sort(starts.begin(), starts.end());
        for (const Entry& entry : *reader) {
            if (entry.type == EntryType::kFile) {
                spans_[std::string(entry.path)] = {
                    entry.localHeaderOffset,
                    *std::upper_bound(starts.begin(), starts.end(), entry.localHeaderOffset)};
            }
        }
        EXPECT_EQ(spans_.size(), contents_.size());
    }

    // Where it begins, as the end record says.
    [[nodiscard]] std::uint64_t directory() const {
        const std::size_t end = bytes_.rfind("PK\5\6");
        return loadLittleEndian<std::uint32_t>(
            ByteView(reinterpret_cast<const std::uint8_t*>(bytes_.data()), bytes_.size()),
            end + 16);
    }

    // What stands there is whole; and what is whole by `isWhole` stands there.
    template <typename IsWhole>
    void expectWhole(const IsWhole& isWhole, const std::string& damage) const {
        for (const auto& [path, span] : spans_) {
            const bool stands = fs::exists(out(path));
            if (stands) {
                EXPECT_EQ(text(path), contents_.at(path)) << path << ", " << damage;
            }
            EXPECT_TRUE(stands || !isWhole(span)) << path << ", " << damage;
        }
    }

    const std::map<std::string, std::string> contents_ = {
        {"a/text", prose(3000, 1)},
        {"a/b/nested.zip", ZipBuilder().file("inner", prose(500, 9)).build()},
        {"empty", ""},
        {"large", prose(600000, 2)},
        {"short", "x"},
        {"z", prose(900, 3)}};
    std::string bytes_;
    std::map<std::string, Span> spans_;
};

TEST_P(DamagedArchiveTest, CutOffAnywhere) {
    for (std::size_t i = 0; i <= 24; ++i) {
        const std::size_t size = bytes_.size() * i / 24 - (i == 24 ? 1U : 0U);
        const SalvageReport report = salvageBytes(bytes_.substr(0, size));
        const std::string damage = "cut at " + std::to_string(size);
        expectWhole([size](const Span& span) { return span.end <= size; }, damage);
        EXPECT_FALSE(report.hasDirectory) << damage;
        EXPECT_FALSE(fs::exists(out("inner"))) << damage;
        if (size >= directory()) {
            EXPECT_EQ(report.lost, 0U) << damage;
        }
    }
    // In the middle, so that all offsets behind it are wrong.
    const std::string shifted = bytes_.substr(0, 100) + bytes_.substr(130);
    salvageBytes(shifted);
    expectWhole([](const Span& span) { return span.begin >= 130 || span.end <= 100; }, "shifted");
}

TEST_P(DamagedArchiveTest, OneBitAnywhere) {
    for (std::size_t i = 0; i < 60; ++i) {
        const std::size_t place = (bytes_.size() - 1) * i / 59;
        std::string damaged = bytes_;
        damaged[place] = static_cast<char>(damaged[place] ^ (1 << (i % 8)));
        const SalvageReport report = salvageBytes(damaged);
        expectWhole([place](const Span& span) { return place < span.begin || place >= span.end; },
                    "bit at " + std::to_string(place));
        EXPECT_FALSE(fs::exists(out("inner"))) << place;
        EXPECT_LE(report.lost, 2U) << place;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Peers,
    DamagedArchiveTest,
    testing::Values(Maker{"Zip", "zip -qrD ../made.zip ."},
                    Maker{"ZipToPipe", "zip -qrD - . | cat > ../made.zip"},
                    Maker{"ZipStored", "zip -qrD0 ../made.zip ."},
                    Maker{"Bsdtar", "bsdtar --format zip -cf ../made.zip *"},
                    Maker{"BsdtarStored",
                          "bsdtar --format zip --options zip:compression=store -cf ../made.zip *"},
                    Maker{"SevenZip", "7zz a -tzip ../made.zip ."},
                    Maker{"SevenZipLzma", "7zz a -tzip -mm=LZMA ../made.zip ."},
                    Maker{"Python", "python3 -m zipfile -c ../made.zip *"}),
    labelOf<Maker>);

TEST_F(SalvageTest, SaysWhatIsLostAndWhy) {
    ZipBuilder zip;
    zip.file("whole", "whole")
        .file("../outside", "outside")
        .add(stored("wrong", prose(200)).with(&ZipHeader::crc32, 1U))
        .add(stored("unknown", "?").with(&ZipHeader::method, 77))
        .add(stored("secret", prose(50))
                 .with(&ZipHeader::flags, 1)
                 .with(&ZipHeader::uncompressedSize, 38))
        .add(symbolicLink("out", "../../etc"))
        .add(symbolicLink("in", "whole"))
        .add(folder("a folder/"))
        .file("whole/below", "below");
    const SalvageReport report = salvageBytes(zip.build());
    EXPECT_TRUE(report.hasDirectory);
    EXPECT_EQ(listing(), (Paths{"a folder/", "in@", "whole"}));
    EXPECT_EQ(report.recovered, 3U);
    EXPECT_EQ(report.bytes, 5U);
    EXPECT_EQ(report.lost, 6U);
    EXPECT_EQ(reasons(report),
              (std::vector{ErrorCode::kUnsafeName,
                           ErrorCode::kChecksumMismatch,
                           ErrorCode::kUnsupportedMethod,
                           ErrorCode::kEncrypted,
                           ErrorCode::kConflictingNames,
                           ErrorCode::kUnsafeLink}));
    EXPECT_EQ(report.lostEntries[1].path, "wrong");
}

TEST_F(SalvageTest, NothingThatStandsThereIsTouched) {
    fs::create_directories(destination() / "folder");
    test::writeFile(out("a"), "mine");
    fs::create_symlink("/tmp", out("link"));
    ZipBuilder zip;
    zip.file("a", "first").file("a", "second").file("folder/b", "b").file("link/c", "c");
    zip.writeTo(archivePath());
    const auto report = salvage(archivePath(), destination());
    ASSERT_TRUE(report);
    EXPECT_EQ(listing(), (Paths{"a", "a (2)", "a (3)", "folder/", "folder/b", "link@"}));
    EXPECT_EQ(text("a"), "mine");
    EXPECT_EQ(text("a (3)"), "second");
    EXPECT_EQ(report->renamed, 2U);
    EXPECT_EQ(reasons(*report), std::vector{ErrorCode::kConflictingNames});
}

TEST_F(SalvageTest, LegacyNamesAreReadWithoutTheDirectory) {
    ZipBuilder zip;
    for (const char* name :
         {"\x93\xfa\x96\x7b\x8c\xea.txt", "\x83\x65\x83\x58\x83\x67.txt", "\x8e\xca\x90\x5e.txt"}) {
        zip.file(name, "x");
    }
    const std::string whole = zip.build();
    salvageBytes(whole.substr(0, whole.find("PK\1\2")));
    EXPECT_EQ(listing(), (Paths{"テスト.txt", "写真.txt", "日本語.txt"}));
}

TEST_F(SalvageTest, EncryptedEntriesComeOutWithThePassword) {
    test::writeFile(home() / "small", std::string_view("small"));
    test::writeFile(home() / "large", prose(800000));
    for (const char* command : {"7zz a -tzip -pgeheim -mem=AES256 made.zip small large",
                                "zip -qP geheim - small large | cat > made.zip",
                                "bsdtar --format zip --options zip:encryption=aes128 --passphrase "
                                "geheim -cf made.zip small large"}) {
        fs::remove(home() / "made.zip");
        ASSERT_EQ(test::runProcess({"sh", "-c", command}, home().path()).exitCode, 0);
        std::string bytes = readText(home() / "made.zip");
        bytes.resize(bytes.find("PK\1\2"));
        const Password password("geheim");
        const SalvageReport report = salvageBytes(bytes, {.password = &password});
        EXPECT_EQ(report.lost, 0U) << command;
        EXPECT_EQ(text("small"), "small") << command;
        EXPECT_EQ(text("large"), prose(800000)) << command;
        EXPECT_EQ(salvageBytes(bytes).lost, 2U) << command;
    }
}

// Each of these would take minutes if it were not for the bounds.
TEST_F(SalvageTest, HostileArchivesTakeNoLongerThanTheirSize) {
    const auto started = std::chrono::steady_clock::now();
    std::string described;  // each claims all that follows, and none says where it ends
    std::string nested;
    std::string sameName;
    std::string extras;  // each claims all that follows for its extra field
    for (int i = 0; i < 30000; ++i) {
        ZipEntry entry = stored("n", "").described();
        described += std::string("PK\3\4\24\0\10\0\0\0", 10) + std::string(16, '\0') +
                     std::string("\1\0\0\0n", 5);
        ZipBuilder one;
        one.add(stored("n", "x"));
        sameName += one.build().substr(0, 32);
        extras += std::string("PK\3\4\24\0\10\0\0\0", 10) + std::string(16, '\0') +
                  std::string("\1\0\xFF\xFFn", 5);
        nested += std::string("PK\3\4\24\0\0\0\0\0\0\0\0\0\1\1\1\1\0\0\20\0\0\0\20\0\1\0\0\0n", 31);
    }
    while (extras.size() < 10'000'000) {
        extras += extras;
    }
    for (const std::string& bytes :
         {described, nested + std::string(1 << 20, 'x'), sameName, extras}) {
        const SalvageReport report = salvageBytes(bytes);
        EXPECT_LE(report.recovered, 101U);
        EXPECT_LE(report.lostEntries.size(), SalvageReport::kMostListed);
        EXPECT_GT(report.lost, 20000U);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(60));
}

TEST_F(SalvageTest, StopsWhenAsked) {
    std::stop_source stop;
    stop.request_stop();
    ZipBuilder().file("a", "a").writeTo(archivePath());
    EXPECT_EQ(salvage(archivePath(), destination(), {.stop = stop.get_token()}).error().code,
              ErrorCode::kCancelled);
}

}  // namespace
}  // namespace pellumar::archive
