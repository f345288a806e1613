#include <functional>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class Zip64Test : public ExtractionTest {
  protected:
    static ZipBuilder archive() {
        ZipBuilder zip;
        zip.zip64 = true;
        zip.add(deflated("a", prose(1000)).with(&ZipHeader::zip64, true))
            .add(stored("b", "data").with(&ZipHeader::zip64, true))
            .file("c", "small");
        return zip;
    }
};

TEST_F(Zip64Test, FieldsAndRecordsAreTaken) {
    ZipBuilder zip = archive();
    expectTaken(zip, {"a", "b", "c"});
    EXPECT_EQ(text("a"), prose(1000));
    // The small record may still hold what fits.
    zip.end.entries = 3;
    zip.end.entriesOnDisk = 3;
    expectTaken(zip, {"a", "b", "c"});
}

TEST_F(Zip64Test, RecordsAreTakenBehindAPrefix) {
    for (const bool known : {true, false}) {
        ZipBuilder zip = archive();
        zip.prefix = prose(777);
        zip.offsetsKnowPrefix = known;
        expectTaken(zip, {"a", "b", "c"});
    }
}

TEST_F(Zip64Test, RecordsThatContradictAreRefused) {
    const std::vector<std::function<void(ZipBuilder&)>> lies = {
        [](ZipBuilder& z) { z.locatorOffset = 0; },
        [](ZipBuilder& z) { z.locatorOffset = 1ULL << 62U; },
        [](ZipBuilder& z) { z.locatorOffset = ~0ULL; },
        [](ZipBuilder& z) { z.end.entries = 2; },
        [](ZipBuilder& z) { z.end.entriesOnDisk = 2; },
        [](ZipBuilder& z) { z.end.directorySize = 10; },
        [](ZipBuilder& z) { z.end.directoryOffset = 0; },
        [](ZipBuilder& z) { z.zip64End.entries = z.zip64End.entriesOnDisk = 2; },
        [](ZipBuilder& z) { z.zip64End.entries = z.zip64End.entriesOnDisk = 1ULL << 60U; },
        [](ZipBuilder& z) { z.zip64End.directorySize = ~0ULL; },
        [](ZipBuilder& z) { z.zip64End.directoryOffset = ~0ULL - 5; },
        [](ZipBuilder& z) { z.zip64End.directoryOffset = 5; }};
    for (std::size_t i = 0; i < lies.size(); ++i) {
        ZipBuilder zip = archive();
        lies[i](zip);
        const auto report = unzip(zip);
        ASSERT_FALSE(report) << i;
        EXPECT_EQ(report.error().code, ErrorCode::kDamagedDirectory) << i;
        EXPECT_EQ(listing(), Paths());
    }
}

TEST_F(Zip64Test, AMaskedValueWithoutItsFieldIsNotMadeUp) {
    const ZipEntry whole = stored("entry", "data");
    ZipEntry central = whole;
    central.central.uncompressedSize = 0xFFFFFFFF;
    expectRefused(ZipBuilder().add(central), ErrorCode::kSizeMismatch, "entry");
    ZipEntry local = whole;
    local.local.uncompressedSize = 0xFFFFFFFF;
    expectFailed(ZipBuilder().add(local), ErrorCode::kHeaderMismatch, "entry");
    ZipEntry offset = whole;
    offset.central.offset = 0xFFFFFFFF;
    expectRefused(ZipBuilder().add(offset), ErrorCode::kDamagedDirectory, "entry");
}

}  // namespace
}  // namespace pellumar::archive
