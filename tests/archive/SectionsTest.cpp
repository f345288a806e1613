#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "archive/ExtractionTest.h"
#include "archive/Writer.h"
#include "archive/base/Crc32.h"
#include "archive/base/ProgressTeller.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/ArchiveReader.h"
#include "archive/reading/SectionInflater.h"
#include "archive/reading/SectionedExtraction.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/SampleContent.h"

namespace pellumar::archive {
namespace {

using pellumar::test::sampleContent;
using pellumar::test::SampleKind;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kSection = 8UL * 1024 * 1024;
constexpr unsigned kSeveral = 3;

// One large file, whose sections the archive tells of.
class SectionsTest : public ExtractionTest {
  protected:
    SectionsTest() : content_(sampleContent(SampleKind::kMixed, 3 * kSection + 12'345)) {
        auto writer = Writer::create(archivePath(), {.reproducible = true});
        NewEntry entry{.name = "large", .content = std::make_shared<const Bytes>(content_)};
        const bool made = writer && writer->add(entry) && writer->close();
        archive_ = made ? test::readFile(archivePath()) : Bytes();
        // The field is in the directory alone.
        constexpr std::uint8_t kHead[] = {format::kExtraSections & 0xFFU,
                                          format::kExtraSections >> 8U,
                                          16,
                                          0,
                                          0,
                                          0,
                                          kSection >> 16U,
                                          0};
        field_ = static_cast<std::size_t>(
            std::search(archive_.begin(), archive_.end(), std::begin(kHead), std::end(kHead)) -
            archive_.begin());
    }

    // The number at that place of the field: first what a section holds, then what each takes.
    [[nodiscard]] std::uint32_t number(std::size_t index) const {
        return loadLittleEndian<std::uint32_t>(archive_, field_ + 4 * (index + 1));
    }

    // Extracts `archive` with so many threads; what came out, or nothing but the error.
    Result<Bytes> extracted(const Bytes& archive, unsigned threads, bool skipChecksum = false) {
        auto reader = Reader::openMemory(archive);
        if (!reader) {
            return Failure(Error(reader.error()));
        }
        std::filesystem::remove_all(home() / "to");
        auto done = reader->extractAll(
            home() / "to", {.skipChecksum = skipChecksum, .limits = {.threads = threads}});
        if (!done) {
            EXPECT_FALSE(std::filesystem::exists(home() / "to/large"));
            return Failure(Error(done.error()));
        }
        return test::readFile(home() / "to/large");
    }

    // Whether it can be extracted by what it says of its sections.
    bool isDivided(const Bytes& archive) {
        const ExtractionOptions options{.limits = {.threads = kSeveral}};
        auto reader = ArchiveReader::open(std::make_unique<MemorySource>(archive));
        if (!reader) {
            return false;
        }
        const EntryTable& entries = (*reader)->entries();
        ReaderThreads threads((*reader)->source(), options);
        ProgressTeller progress(options.progress);
        SectionedExtraction divided((*reader)->source(), options, threads, progress);
        const ByteView field = entries.sectionsOf(entries[0]);
        const File folder = File::openAt(AT_FDCWD, home().path().c_str(), O_RDONLY | O_DIRECTORY);
        FileSink file(folder.descriptor(), entries[0].entry);
        if (!divided.isFor(entries[0], field)) {
            return false;
        }
        auto extracted = divided.extract(entries[0], field, file);
        return extracted && *extracted;
    }

    const Bytes content_;
    Bytes archive_;
    std::size_t field_ = 0;
};

TEST_F(SectionsTest, AreExtractedByThemselvesToTheSameBytes) {
    ASSERT_LT(field_, archive_.size());
    ASSERT_TRUE(isDivided(archive_));
    for (const unsigned threads : {1U, 2U, kSeveral}) {
        const auto found = extracted(archive_, threads);
        ASSERT_TRUE(found && *found == content_) << threads;
    }
}

TEST_F(SectionsTest, LiesComeToNothing) {
    ASSERT_LT(field_, archive_.size());
    std::mt19937 random(5);
    for (int round = 0; round < 24; ++round) {
        Bytes lying = archive_;
        const auto set = [&](std::size_t index, std::uint32_t value) {
            storeLittleEndian(MutableBytes(lying), field_ + 4 * (index + 1), value);
        };
        const std::size_t index = 1 + random() % 3;
        switch (round % 6) {
            case 0:  // a little beside
                set(index, number(index) + 1 - 2 * (random() % 2));
                break;
            case 1:  // whole sections of other sizes, the data of two exchanged
                set(index, number(1 + index % 3));
                break;
            case 2:  // within a section
                set(1, number(1) / 2);
                set(2, number(2) + number(1) - number(1) / 2);
                break;
            case 3:
                set(index, static_cast<std::uint32_t>(random()));
                break;
            case 4:  // another size, of which there are as many
                set(0, kSection + 1 + random() % 1000);
                break;
            default:
                set(0, static_cast<std::uint32_t>(random() % 4));
        }
        for (const bool skipChecksum : {false, true}) {
            const auto found = extracted(lying, kSeveral, skipChecksum);
            ASSERT_TRUE(found && *found == content_) << round;
        }
    }
}

TEST_F(SectionsTest, DamageIsWhatItIsWithoutThem) {
    for (const std::size_t place : {number(1) / 2, number(1) + 100, number(1) + number(2) + 5000}) {
        Bytes damaged = archive_;
        damaged[place] = static_cast<std::uint8_t>(damaged[place] ^ 0x10U);
        const auto whole = extracted(damaged, 1);
        const auto divided = extracted(damaged, kSeveral);
        ASSERT_FALSE(whole || divided) << place;
        EXPECT_EQ(divided.error().code, whole.error().code) << place;
    }
}

// A chunk that knows what is before it begins between blocks, but is no section.
TEST(SectionInflaterTest, RefusesWhatRefersToWhatIsBefore) {
    constexpr std::size_t kWindow = DeflateCompressor::kWindow;
    const Bytes content = sampleContent(SampleKind::kText, 300'000);
    DeflateCompressor compressor;
    for (const std::size_t window : {std::size_t{0}, kWindow}) {
        Bytes chunk(DeflateCompressor::kMostOutput);
        chunk.resize(compressor.compress(content, false, chunk, std::nullopt, window));
        const MemorySource source(chunk);
        const format::Section section{.dataSize = chunk.size(),
                                      .contentSize = content.size() - window};
        const auto found = SectionInflater(source).inflate(
            0, section, false, [](std::uint64_t, ByteView) { return Result<>(); });
        ASSERT_EQ(found.has_value(), window == 0);
        if (found) {
            EXPECT_EQ(*found, crc32(kCrc32OfNothing, content));
        }
        // It does not end there.
        EXPECT_FALSE(SectionInflater(source).inflate(
            0, section, true, [](std::uint64_t, ByteView) { return Result<>(); }));
    }
}

}  // namespace
}  // namespace pellumar::archive
