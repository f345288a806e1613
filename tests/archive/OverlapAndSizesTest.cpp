#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class OverlapTest : public ExtractionTest {};

TEST_F(OverlapTest, TwoEntriesOfTheSameDataAreRefused) {
    ZipEntry twin = deflated("b", prose(1000));
    twin.inBody = false;
    twin.central.offset = 0;
    expectRefused(ZipBuilder().add(deflated("a", prose(1000))).add(twin), ErrorCode::kOverlap, "a");
}

// How bombs without recursion are made: each entry's data quotes the local headers behind it.
TEST_F(OverlapTest, QuotedOverlapIsRefused) {
    ZipBuilder inner;
    inner.add(deflated("inner", prose(100000)));
    const std::string quoted = inner.build();
    ZipEntry alias = deflated("inner", prose(100000));
    alias.inBody = false;
    alias.central.offset = 30 + std::string_view("outer").size();
    expectRefused(
        ZipBuilder().add(stored("outer", quoted)).add(alias), ErrorCode::kOverlap, "outer");
}

TEST_F(OverlapTest, DataThatReachesIntoWhatFollowsIsRefused) {
    for (const std::uint64_t more : {1ULL, 40ULL, 0x7FFFFFFFULL}) {
        ZipEntry greedy = stored("greedy", "data");
        greedy.with(&ZipHeader::compressedSize, 4 + more);
        greedy.with(&ZipHeader::uncompressedSize, 4 + more);
        expectRefused(ZipBuilder().add(greedy).file("next", "x"), ErrorCode::kOverlap, "greedy");
        expectRefused(ZipBuilder().file("before", "x").add(greedy), ErrorCode::kOverlap, "greedy");
    }
    // Sizes whose sum with the offset wraps around.
    for (const std::uint64_t size : {~0ULL, ~0ULL - 30, 1ULL << 63U}) {
        ZipEntry wrapping = stored("wrapping", "data").with(&ZipHeader::zip64, true);
        wrapping.with(&ZipHeader::compressedSize, size);
        wrapping.with(&ZipHeader::uncompressedSize, size);
        expectRefused(ZipBuilder().add(wrapping), ErrorCode::kOverlap, "wrapping");
        ZipEntry far = stored("far", "data").with(&ZipHeader::zip64, true);
        far.central.offset = size;
        expectRefused(ZipBuilder().add(far), ErrorCode::kDamagedDirectory, "far");
    }
}

// The directory cannot show how long the local header's extra fields are.
TEST_F(OverlapTest, LocalHeaderThatPushesTheDataIntoTheNextEntryIsFound) {
    ZipEntry pushed = stored("pushed", std::string(100, 'x'));
    pushed.local.extra = test::extraField(0x6666, std::string(200, '\0'));
    pushed.data.clear();
    pushed.local.extra.resize(100);
    std::string archive = ZipBuilder().add(pushed).file("next", "x").build();
    archive[28] = static_cast<char>(0xF0);
    const auto report = unzipBytes(archive);
    ASSERT_FALSE(report);
    EXPECT_EQ(report.error().code, ErrorCode::kOverlap) << report.error().describe();
    EXPECT_FALSE(std::filesystem::exists(out("pushed")));
}

class SizesTest : public ExtractionTest, public testing::WithParamInterface<std::size_t> {};

// Small entries are unpacked in one call, large ones streamed.
INSTANTIATE_TEST_SUITE_P(SmallAndLarge, SizesTest, testing::Values(1000, 3000000));

TEST_P(SizesTest, MoreDataThanDeclaredIsAnError) {
    for (const std::size_t hidden : {std::size_t{1}, GetParam() / 2, GetParam()}) {
        ZipEntry entry = deflated("lie", prose(GetParam()));
        entry.with(&ZipHeader::uncompressedSize, GetParam() - hidden);
        expectFailed(ZipBuilder().file("first", "x").add(entry), ErrorCode::kSizeMismatch, "lie");
    }
}

TEST_P(SizesTest, LessDataThanDeclaredIsAnError) {
    ZipEntry entry = deflated("lie", prose(GetParam()));
    entry.with(&ZipHeader::uncompressedSize, GetParam() + 1);
    expectFailed(ZipBuilder().add(entry), ErrorCode::kSizeMismatch, "lie");
}

TEST_P(SizesTest, DataLeftOverIsAnError) {
    ZipEntry entry = deflated("lie", prose(GetParam()));
    entry.data += std::string(500, 'x');
    entry.with(&ZipHeader::compressedSize, entry.data.size());
    expectFailed(ZipBuilder().add(entry), ErrorCode::kSizeMismatch, "lie");
}

TEST_P(SizesTest, DataThatEndsEarlyIsAnError) {
    ZipEntry entry = deflated("cut", prose(GetParam()));
    entry.data.resize(entry.data.size() / 2);
    entry.with(&ZipHeader::compressedSize, entry.data.size());
    expectFailed(ZipBuilder().add(entry), ErrorCode::kDamagedData, "cut");
}

class ImpossibleSizesTest : public ExtractionTest {};

TEST_F(ImpossibleSizesTest, AreRefusedBeforeAnythingIsWritten) {
    const auto expect = [this](const ZipEntry& entry, ErrorCode code) {
        expectRefused(ZipBuilder().file("first", "x").add(entry), code, entry.central.name);
    };
    expect(stored("stored", "data").with(&ZipHeader::uncompressedSize, 5),
           ErrorCode::kSizeMismatch);
    expect(stored("stored", "data").with(&ZipHeader::uncompressedSize, 3),
           ErrorCode::kSizeMismatch);
    // 1,032 to 1 is the most that DEFLATE can do.
    expect(deflated("ratio", "data").with(&ZipHeader::uncompressedSize, 1000000000),
           ErrorCode::kSizeMismatch);
    expect(stored("nothing", "").with(&ZipHeader::method, 8).with(&ZipHeader::uncompressedSize, 1),
           ErrorCode::kSizeMismatch);
    expectRefused(ZipBuilder().add(stored("folder/", "data")), ErrorCode::kSizeMismatch, "folder");
}

TEST_F(ImpossibleSizesTest, MoreThanTheFreeSpaceIsRefused) {
    const auto huge = [](std::string name, std::uint64_t size) {
        return packed(std::move(name), 93, "xxxx", "x")
            .with(&ZipHeader::zip64, true)
            .with(&ZipHeader::uncompressedSize, size);
    };
    expectRefused(
        ZipBuilder().file("first", "x").add(huge("huge", 1ULL << 60U)), ErrorCode::kTooLarge, "");
    // The sum wraps around to a small number.
    expectRefused(ZipBuilder().add(huge("a", 1ULL << 63U)).add(huge("b", 1ULL << 63U)),
                  ErrorCode::kTooLarge,
                  "b");
}

// Some writers end a folder's entry in an empty DEFLATE block.
TEST_F(ImpossibleSizesTest, AFolderWithAnEmptyBlockIsTaken) {
    expectTaken(ZipBuilder().add(deflated("d/", "").mode(S_IFDIR | 0755U)), {"d/"});
}

}  // namespace
}  // namespace pellumar::archive
