#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "archive/format/CentralDirectoryHeader.h"
#include "archive/format/EntryRecord.h"
#include "archive/format/LocalFileHeader.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {
namespace {

EntryRecord sample() {
    return {.name = "Fotos/Übung.jpg",
            .method = kMethodDeflate,
            .unixMode = 0100640,
            .modified = {.tv_sec = 1'700'000'001, .tv_nsec = 0},
            .crc32 = 0xDEADBEEF,
            .compressedSize = 1234,
            .uncompressedSize = 5678,
            .localHeaderOffset = 99};
}

TEST(Headers, LocalHeaderKeepsItsLengthWhenItIsWrittenOver) {
    EntryRecord record = sample();
    record.zip64Sizes = true;
    std::vector<std::uint8_t> before;
    appendLocalFileHeader(before, record);
    record.crc32 = 1;
    record.compressedSize = 1ULL << 33U;
    std::vector<std::uint8_t> after;
    appendLocalFileHeader(after, record);

    EXPECT_EQ(before.size(), after.size());
}

TEST(Headers, CutOffRecordsAreRefusedAtEveryLength) {
    EntryRecord record = sample();
    record.uncompressedSize = 1ULL << 40U;
    std::vector<std::uint8_t> central;
    appendCentralDirectoryHeader(central, record);
    std::vector<std::uint8_t> local;
    record.zip64Sizes = true;
    appendLocalFileHeader(local, record);

    for (std::size_t size = 0; size < central.size(); ++size) {
        const auto header = CentralDirectoryHeader::parse(ByteView(central).first(size), 7);
        ASSERT_FALSE(header);
        EXPECT_EQ(header.error().code, ErrorCode::kDamagedDirectory);
        EXPECT_EQ(header.error().offset, 7U);
    }
    for (std::size_t size = 0; size < local.size(); ++size) {
        ASSERT_FALSE(LocalFileHeader::parse(ByteView(local).first(size), 0));
    }
}

TEST(Headers, OnlyNamesInUtf8BearTheFlag) {
    const auto flagsOf = [](std::string name) {
        EntryRecord record = sample();
        record.name = std::move(name);
        std::vector<std::uint8_t> bytes;
        appendLocalFileHeader(bytes, record);
        return LocalFileHeader::parse(bytes, 0)->flags;
    };
    EXPECT_EQ(flagsOf("plain.txt"), 0);
    EXPECT_EQ(flagsOf("Ü"), kFlagUtf8);
    EXPECT_EQ(flagsOf("\xDC"), 0);              // Latin-1
    EXPECT_EQ(flagsOf("\xED\xA0\x80"), 0);      // a surrogate
    EXPECT_EQ(flagsOf("\xC0\xAF"), 0);          // overlong "/"
    EXPECT_EQ(flagsOf("\xF4\x90\x80\x80"), 0);  // above U+10FFFF
    EXPECT_EQ(flagsOf("\xF0\x9F\x93\xA6.zip"), kFlagUtf8);
}

}  // namespace
}  // namespace pellumar::archive::format
