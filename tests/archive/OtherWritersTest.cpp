#include "archive/ExtractionTest.h"
#include "archive/base/Crc32.h"

namespace pellumar::archive {
namespace {

// A Unicode path field that fits a header's name.
std::string unicodePath(std::string_view name, std::string_view text) {
    const auto checksum =
        crc32(kCrc32OfNothing, {reinterpret_cast<const std::uint8_t*>(name.data()), name.size()});
    return test::extraField(0x7075, "\x01" + test::littleEndian(checksum, 4) + std::string(text));
}

// What programs write that bend the rules in good faith.
class OtherWritersTest : public ExtractionTest {
  protected:
    void expectTakenWith(const ZipBuilder& zip,
                         const Paths& expected,
                         WarningCode warning,
                         std::size_t times = 1) {
        const auto report = unzip(zip);
        ASSERT_TRUE(report) << report.error().describe();
        EXPECT_EQ(listing(), expected);
        EXPECT_EQ(countOf(report->warnings, warning), times);
    }
};

TEST_F(OtherWritersTest, ADescriptorThatOnlyTheLocalHeaderTellsOf) {
    for (const std::size_t size : {std::size_t{300}, std::size_t{3000000}}) {
        for (const bool signature : {true, false}) {
            for (const bool wide : {true, false}) {
                ZipEntry entry = deflated("entry", prose(size)).described(signature, wide);
                entry.central.flags = 0;
                expectTaken(ZipBuilder().add(entry).file("last", "x"), {"entry", "last"});
                EXPECT_EQ(text("entry"), prose(size));
                // Its values are held against the directory before anything is written.
                ZipEntry lie = entry;
                lie.descriptor[lie.descriptor.size() - 1] ^= 1;
                expectRefused(
                    ZipBuilder().file("a", "").add(lie), ErrorCode::kHeaderMismatch, "entry");
            }
        }
    }
    ZipEntry onlyCentral = deflated("entry", "data").described();
    onlyCentral.local.flags = 0;
    expectRefused(ZipBuilder().add(onlyCentral), ErrorCode::kHeaderMismatch, "entry");
}

TEST_F(OtherWritersTest, NamesThatDifferBySeparator) {
    ZipEntry file = deflated("test/a", "data");
    file.local.name = "test\\a";
    ZipEntry other = deflated("other\\b", "data");
    other.local.name = "other/b";
    ZipEntry inside = folder("test/sub/");
    inside.local.name = "test\\sub\\";
    expectTaken(ZipBuilder().add(file).add(other).add(inside),
                {"other/", "other/b", "test/", "test/a", "test/sub/"});
    file.local.name = "test\\b";
    expectRefused(ZipBuilder().add(file), ErrorCode::kHeaderMismatch, "test/a");
    file.local.name = "test/a\\";
    expectRefused(ZipBuilder().add(file), ErrorCode::kHeaderMismatch, "test/a");
}

TEST_F(OtherWritersTest, NamesThatDifferByCharset) {
    struct Pair {
        const char* label;
        std::string local;
        std::string localExtra;
        std::string central;
        std::string centralExtra;
        std::string path;
    };
    const std::string latin = "Gr\xFC\x6E";  // Windows' western charset
    const std::string dos = "Gr\x81n";       // MS-DOS's
    const std::string russian = "\x8E\xE2\xE7\xA5\xE2";
    const std::vector<Pair> pairs = {
        {"field in one", dos, "", latin, unicodePath(latin, "Grün"), "Grün"},
        {"fields in both",
         "Gr?n",
         unicodePath("Gr?n", "Grün"),
         dos,
         unicodePath(dos, "Grün"),
         "Grün"},
        {"field in the other", "Gr_n", unicodePath("Gr_n", "Grün"), "Grün", "", "Grün"},
        {"flag in one", russian, "", "Отчет", "", "Отчет"},
        {"guessed", "Отчет", "", russian, "", "Отчет"}};
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.label);
        ZipEntry entry = stored(pair.central, "data");
        entry.central.extra = pair.centralExtra;
        entry.local.name = pair.local;
        entry.local.extra = pair.localExtra;
        for (ZipHeader* header : {&entry.local, &entry.central}) {
            header->flags = header->name == pair.path ? 0x800 : 0;
        }
        expectTaken(ZipBuilder().add(entry), {pair.path});
        entry.local.name.back() = 'z';
        entry.local.extra.clear();
        expectRefused(ZipBuilder().add(entry), ErrorCode::kHeaderMismatch, pair.path);
    }
}

// The last entry's comment stands where a ZIP64 locator would.
TEST_F(OtherWritersTest, ALocatorsSignatureByChance) {
    const std::string signature = test::littleEndian(0x07064B50, 4);
    for (const std::string& rest :
         {std::string(16, 'x'),
          std::string(16, '\0'),
          test::littleEndian(0, 4) + test::littleEndian(1, 8) + test::littleEndian(1, 4)}) {
        ZipEntry entry = stored("entry", "data");
        entry.central.comment = "see ";
        entry.central.comment.append(signature).append(rest);
        expectTaken(ZipBuilder().file("a", std::string(500, 'x')).add(entry), {"a", "entry"});
        ZipBuilder masked;
        masked.file("a", std::string(500, 'x')).add(entry).end.directoryOffset = 0xFFFFFFFF;
        expectRefused(
            masked, rest[0] == 'x' ? ErrorCode::kMultipleDisks : ErrorCode::kDamagedDirectory, "");
    }
}

TEST_F(OtherWritersTest, BytesBeforeAndBehind) {
    ZipBuilder zip;
    zip.add(deflated("a", prose(3000))).file("b", "data");
    zip.prefix = prose(100000);
    zip.suffix = prose(1000);
    zip.offsetsKnowPrefix = false;
    expectTakenWith(zip, {"a", "b"}, WarningCode::kBytesBeforeArchive);
    expectTakenWith(zip, {"a", "b"}, WarningCode::kBytesAfterArchive);
}

// What is left of an archive that held the other one stored is not the other one.
TEST_F(OtherWritersTest, AnArchiveCutOffInAStoredArchiveIsCutOff) {
    const std::string inner = ZipBuilder().file("inner", "data").build();
    for (const std::string& prefix : {std::string(), prose(100)}) {
        ZipBuilder outer;
        outer.prefix = prefix;
        const std::string whole = outer.file("first", "x").file("inner.zip", inner).build();
        const std::size_t end = whole.find(inner) + inner.size();
        EXPECT_FALSE(unzipBytes(whole.substr(0, end + 40)));
        EXPECT_EQ(listing(), Paths());
    }
}

TEST_F(OtherWritersTest, MoreEntriesThanFitIntoTheirFieldWithoutZip64) {
    for (const std::size_t count : {std::size_t{65536}, std::size_t{65539}}) {
        ZipBuilder zip;
        for (std::size_t i = 0; i < count; ++i) {
            zip.file(std::to_string(i), "");
        }
        zip.end.entries = zip.end.entriesOnDisk = count % 65536;
        zip.writeTo(archivePath());
        const auto archive = Reader::open(archivePath());
        ASSERT_TRUE(archive) << archive.error().describe();
        EXPECT_EQ(archive->size(), count);
        zip.end.entries = zip.end.entriesOnDisk = (count + 1) % 65536;
        zip.writeTo(archivePath());
        EXPECT_EQ(Reader::open(archivePath()).error().code, ErrorCode::kDamagedDirectory);
    }
}

// What two readers would take for two different archives, or entries.
class TwoReadersTest : public ExtractionTest {};

TEST_F(TwoReadersTest, NamesWithTwoReadingsAreRefused) {
    const auto expectAmbiguous = [this](const ZipEntry& entry) {
        expectRefused(ZipBuilder().file("a", "").add(entry),
                      ErrorCode::kUnsafeName,
                      unzip(ZipBuilder().file("a", "").add(entry)).error().entry);
    };
    const std::string name = "na\x81me";
    const std::string first = unicodePath(name, "one");
    ZipEntry entry = stored(name, "data");
    entry.central.extra = first + unicodePath(name, "two");
    expectAmbiguous(entry);
    entry.central.extra = first + test::extraField(9, "") + unicodePath("one", "two");
    expectAmbiguous(entry);
    entry.central.extra = test::extraField(0x7075, "\x01____one") + first;
    expectAmbiguous(entry);
    entry = stored("safe.txt", "data");
    entry.central.extra = unicodePath("safe.txt", "evil.exe");
    expectAmbiguous(entry);
    entry = stored("größe", "data").with(&ZipHeader::flags, 0x800);
    entry.central.extra = unicodePath("größe", "evil.exe");
    expectAmbiguous(entry);

    // Said twice is said once; the separator is no name.
    entry = stored("dir/größe", "data").with(&ZipHeader::flags, 0x800);
    const std::string same = unicodePath("dir/größe", "dir\\größe");
    entry.central.extra = same + same;
    expectTaken(ZipBuilder().add(entry), {"dir/", "dir/größe"});
    // The local header's own field counts as well.
    entry.local.extra = unicodePath("dir/größe", "evil.exe");
    expectRefused(ZipBuilder().add(entry), ErrorCode::kHeaderMismatch, "dir/größe");
}

TEST_F(TwoReadersTest, TwoZip64RecordsHaveToAgree) {
    for (const bool same : {true, false}) {
        ZipBuilder zip;
        zip.zip64 = true;
        zip.file("a", std::string(500, 'x')).file("b", "data");
        const std::string whole = zip.build();
        const std::size_t at = whole.find(test::littleEndian(0x06064B50, 4));
        constexpr std::size_t kRecord = 56;
        std::string record = whole.substr(at, kRecord);
        // The first reaches over the second to the locator, which leads to it.
        std::string first = record;
        first.replace(4, 8, test::littleEndian(kRecord - 12 + kRecord, 8));
        if (!same) {
            record.replace(32, 8, test::littleEndian(1, 8));
        }
        std::string two = whole;
        two.replace(at, kRecord, first.append(record));
        const auto report = unzipBytes(two);
        EXPECT_EQ(report.has_value(), same);
        if (!same) {
            EXPECT_EQ(report.error().code, ErrorCode::kDamagedDirectory);
        }
    }
}

TEST_F(TwoReadersTest, AnEntryThatIsNotListedIsToldOf) {
    const auto offsets = [this](const ZipBuilder& zip) {
        std::vector<std::uint64_t> found;
        const auto report = unzip(zip);
        EXPECT_TRUE(report);
        for (const Warning& warning : report->warnings.kept()) {
            EXPECT_EQ(warning.code, WarningCode::kUnlistedEntry);
            found.push_back(warning.offset);
        }
        EXPECT_EQ(listing(), (Paths{"a", "b"}));
        return found;
    };
    ZipEntry hidden = stored("hidden", "data");
    hidden.inDirectory = false;
    const std::size_t length = 30 + 6 + 4;
    const ZipEntry a = stored("a", "data").described();
    const std::size_t lengthOfA = 30 + 1 + 4 + 16;
    const ZipEntry b = stored("b", "data");
    EXPECT_EQ(offsets(ZipBuilder().add(hidden).add(a).add(b)), (std::vector<std::uint64_t>{0}));
    EXPECT_EQ(offsets(ZipBuilder().add(a).add(hidden).add(b).add(hidden)),
              (std::vector<std::uint64_t>{lengthOfA, lengthOfA + length + 30 + 1 + 4}));
    // Bytes that have the signature alone are none, nor is the folder itself.
    ZipEntry behind = b;
    behind.before = "PK\x03\x04" + std::string(60, '\xFF');
    EXPECT_EQ(offsets(ZipBuilder().add(folder("./")).add(a).add(folder("./")).add(behind)),
              std::vector<std::uint64_t>());
}

}  // namespace
}  // namespace pellumar::archive
