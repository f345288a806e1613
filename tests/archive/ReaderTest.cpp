#include "archive/Reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>

#include "archive/ExtractionTest.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

class ReaderTest : public ExtractionTest {
  protected:
    Reader reader(const ZipBuilder& zip) {
        zip.writeTo(archivePath());
        auto opened = Reader::open(archivePath());
        EXPECT_TRUE(opened);
        return std::move(*opened);
    }

    static std::string textOf(const std::vector<std::uint8_t>& bytes) {
        return {bytes.begin(), bytes.end()};
    }
    static std::string read(EntryStream& stream, std::size_t piece) {
        std::string all;
        std::vector<std::uint8_t> buffer(piece);
        for (;;) {
            auto count = stream.read(buffer);
            EXPECT_TRUE(count) << count.error().describe();
            if (!count || *count == 0) {
                return all;
            }
            all.append(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(*count));
        }
    }
};

TEST_F(ReaderTest, EachEntryTellsItsFaultAndTheOthersCanBeRead) {
    ZipEntry overlapping = stored("overlapping", "xxxx");
    overlapping.central.compressedSize = 5000;
    overlapping.central.uncompressedSize = 5000;
    const Reader archive = reader(ZipBuilder()
                                      .file("good", "data")
                                      .file("../evil", "")
                                      .add(packed("method", 77, "x", "x"))
                                      .add(stored("masked", "x").with(&ZipHeader::flags, 0x41))
                                      .add(overlapping)
                                      .file("also good", "more"));
    const std::vector<std::pair<std::string, std::optional<ErrorCode>>> expected = {
        {"good", std::nullopt},
        {"../evil", ErrorCode::kUnsafeName},
        {"method", ErrorCode::kUnsupportedMethod},
        {"masked", ErrorCode::kEncrypted},
        {"overlapping", ErrorCode::kOverlap},
        {"also good", std::nullopt}};
    ASSERT_EQ(archive.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(archive[i].path, expected[i].first);
        EXPECT_EQ(archive[i].fault, expected[i].second) << archive[i].path;
        const auto data = archive.readEntry(i);
        ASSERT_EQ(data.has_value(), !archive[i].fault);
        EXPECT_TRUE(data || data.error().code == *archive[i].fault);
    }
    EXPECT_EQ(archive.firstFault()->entry, "../evil");
    const std::vector<std::size_t> good = {5, 0};
    ASSERT_TRUE(archive.extract(good, destination()));
    EXPECT_EQ(listing(), (Paths{"also good", "good"}));
    EXPECT_EQ(archive.extractAll(home() / "other").error().code, ErrorCode::kUnsafeName);
    EXPECT_FALSE(std::filesystem::exists(home() / "other"));
    const auto tested = archive.test();
    ASSERT_TRUE(tested);
    ASSERT_EQ(tested->size(), 4U);
    EXPECT_EQ((*tested)[3].code, ErrorCode::kOverlap);
}

TEST_F(ReaderTest, StreamsGiveAllDataWhateverTheBufferAndFindDamageAtTheEnd) {
    const std::string large = prose(700'000);
    ZipEntry damaged = deflated("damaged", prose(900'000, 3));
    damaged.with(&ZipHeader::crc32, 1);
    const Reader archive = reader(ZipBuilder()
                                      .add(stored("stored", large))
                                      .add(deflated("deflated", large))
                                      .add(deflated("empty", ""))
                                      .add(damaged)
                                      .add(folder("folder/")));
    for (const std::size_t piece : {1UL, 4096UL, 1'000'000UL}) {
        for (const std::size_t index : {0UL, 1UL, 2UL}) {
            auto stream = archive.openEntry(index);
            ASSERT_TRUE(stream);
            EXPECT_TRUE(read(*stream, piece) == (index == 2 ? "" : large)) << index << ' ' << piece;
        }
    }
    auto stream = archive.openEntry(3);
    ASSERT_TRUE(stream);
    std::vector<std::uint8_t> buffer(100'000);
    Result<std::size_t> count = 1;
    std::size_t sum = 0;
    while (count && *count > 0) {
        count = stream->read(buffer);
        sum += count.value_or(0);
    }
    EXPECT_EQ(sum, 900'000U);
    EXPECT_EQ(count.error().code, ErrorCode::kChecksumMismatch);
    EXPECT_EQ(stream->read(buffer).error().entry, "damaged");
    EXPECT_EQ(archive.openEntry(4).error().code, ErrorCode::kInvalidArgument);
    EXPECT_EQ(archive.openEntry(5).error().code, ErrorCode::kInvalidArgument);
}

TEST_F(ReaderTest, MemoryDescriptorsAndSourcesOfTheCallersAreRead) {
    struct Slow final : ByteSource {
        explicit Slow(std::string all) : bytes(std::move(all)) {}
        [[nodiscard]] std::uint64_t size() const override { return bytes.size(); }
        [[nodiscard]] Result<std::size_t> readAt(std::uint64_t offset,
                                                 MutableBytes buffer) const override {
            if (offset == 4711) {
                return failure(ErrorCode::kCancelled);
            }
            return MemorySource({reinterpret_cast<const std::uint8_t*>(bytes.data()), size()})
                .readAt(offset, buffer);
        }
        std::string bytes;
    };
    ZipBuilder().file("a", "data").writeTo(archivePath());
    const std::vector<std::uint8_t> bytes = test::readFile(archivePath());
    auto file = File::openForReading(archivePath());
    ASSERT_TRUE(file);
    std::filesystem::remove(archivePath());
    std::vector<Result<Reader>> readers;
    readers.push_back(Reader::openMemory(bytes));
    readers.push_back(Reader::open(std::move(*file)));
    readers.push_back(Reader::openSource(std::make_unique<Slow>(textOf(bytes))));
    for (const Result<Reader>& archive : readers) {
        ASSERT_TRUE(archive);
        EXPECT_EQ(textOf(archive->readEntry(0).value()), "data");
    }
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    const File writingEnd(pipe[1]);
    EXPECT_EQ(Reader::open(File(pipe[0])).error().code, ErrorCode::kNotAnArchive);
}

TEST_F(ReaderTest, WhatStandsThereIsTreatedAsAsked) {
    const ZipBuilder zip = std::move(
        ZipBuilder().file("d/a.tar.gz", "new").file("d/b", "new").add(symbolicLink("link", "d/b")));
    const auto prepare = [this](const std::string& name) {
        auto to = home() / name;
        std::filesystem::create_directories(to / "d");
        test::writeFile(to / "d/a.tar.gz", std::string_view("old"));
        test::writeFile(to / "d/a.tar (2).gz", std::string_view("old"));
        std::filesystem::create_symlink("gone", to / "link");
        return to;
    };
    const Reader archive = reader(zip);

    const auto overwritten = prepare("overwritten");
    ASSERT_TRUE(archive.extractAll(overwritten, {.existing = ExistingFiles::kOverwrite}));
    EXPECT_EQ(readText(overwritten / "d/a.tar.gz"), "new");
    EXPECT_EQ(std::filesystem::read_symlink(overwritten / "link"), "d/b");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(overwritten / "d"), {}), 3);

    const auto skipped = prepare("skipped");
    auto report = archive.extractAll(skipped, {.existing = ExistingFiles::kSkip, .sync = true});
    ASSERT_TRUE(report);
    EXPECT_EQ(report->skipped, 2U);
    EXPECT_EQ(report->bytes, 3U);
    EXPECT_EQ(readText(skipped / "d/a.tar.gz"), "old");
    EXPECT_EQ(readText(skipped / "d/b"), "new");
    EXPECT_EQ(std::filesystem::read_symlink(skipped / "link"), "gone");

    const auto renamed = prepare("renamed");
    report = archive.extractAll(renamed, {.existing = ExistingFiles::kRename});
    ASSERT_TRUE(report);
    EXPECT_EQ(report->renamed, 2U);
    EXPECT_EQ(readText(renamed / "d/a.tar.gz"), "old");
    EXPECT_EQ(readText(renamed / "d/a.tar (3).gz"), "new");
    EXPECT_EQ(std::filesystem::read_symlink(renamed / "link (2)"), "d/b");

    // No folder takes the place of a file, nor a file that of a folder; and damage leaves what was
    // there.
    std::filesystem::create_directory(home() / "file");
    test::writeFile(home() / "file/d", std::string_view("old"));
    for (const auto existing :
         {ExistingFiles::kOverwrite, ExistingFiles::kSkip, ExistingFiles::kRename}) {
        EXPECT_EQ(archive.extractAll(home() / "file", {.existing = existing}).error().code,
                  ErrorCode::kAlreadyExists);
        EXPECT_EQ(readText(home() / "file/d"), "old");
    }
    std::filesystem::create_directories(home() / "folder/d/b");
    EXPECT_EQ(
        archive.extractAll(home() / "folder", {.existing = ExistingFiles::kOverwrite}).error().code,
        ErrorCode::kAlreadyExists);
    ZipEntry bad = deflated("d/a.tar.gz", prose(800'000));
    const Reader damaged = reader(ZipBuilder().add(bad.with(&ZipHeader::crc32, 1)));
    const auto kept = prepare("kept");
    EXPECT_FALSE(damaged.extractAll(kept, {.existing = ExistingFiles::kOverwrite}));
    EXPECT_EQ(readText(kept / "d/a.tar.gz"), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(kept / "d"), {}), 2);

    // Where the number makes a name too long for a disk, its last letters go, and those whole.
    std::string letters;
    for (int i = 0; i < 123; ++i) {
        letters += "\u00E9";
    }
    const std::string longest = letters + "\u00E9\u00E9.jpeg";
    const Reader twice = reader(ZipBuilder().file(longest, "new"));
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(twice.extractAll(renamed, {.existing = ExistingFiles::kRename}));
    }
    EXPECT_EQ(readText(renamed / (letters + " (2).jpeg")), "new");

    // Nor does one that cannot be replaced take with it what another link had replaced.
    const auto half = home() / "half";
    std::filesystem::create_directories(half / "b");
    test::writeFile(half / "a", std::string_view("old"));
    const Reader links =
        reader(ZipBuilder().add(symbolicLink("a", "x")).add(symbolicLink("b", "x")));
    EXPECT_EQ(links.extractAll(half, {.existing = ExistingFiles::kOverwrite}).error().entry, "b");
    EXPECT_EQ(readText(half / "a"), "old");
}

TEST_F(ReaderTest, SomeAreExtractedByNameAndWithoutLeadingComponents) {
    const Reader archive = reader(ZipBuilder()
                                      .add(folder("top/"))
                                      .file("top/a", "a")
                                      .file("top/sub/b", "b")
                                      .file("top/sub/c", "c")
                                      .file("topmost", "")
                                      .add(symbolicLink("top/sub/up", "../a")));
    const std::array<std::string_view, 2> names = {"top/sub/", "topmost"};
    const auto chosen = archive.select(names);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(*chosen, (std::vector<std::size_t>{2, 3, 4, 5}));
    ASSERT_TRUE(archive.extract(*chosen, destination(), {.stripComponents = 1}));
    EXPECT_EQ(listing(), (Paths{"sub/", "sub/b", "sub/c", "sub/up@"}));
    // The link would lead out of what is left of its path.
    EXPECT_EQ(archive.extract(*chosen, home() / "two", {.stripComponents = 2}).error().code,
              ErrorCode::kUnsafeLink);
    const std::array<std::string_view, 1> missing = {"top/su"};
    EXPECT_EQ(archive.select(missing).error().code, ErrorCode::kNoSuchEntry);
    EXPECT_EQ(archive.find("top/sub/c"), 3U);
}

TEST_F(ReaderTest, LimitsAreHeldBeforeAnythingIsWritten) {
    const Reader archive = reader(
        ZipBuilder().add(deflated("zeros", std::string(100'000, '\0'))).file("d/small", "xy"));
    const std::vector<ExtractionLimits> limits = {
        {.bytes = 100'001}, {.entries = 2}, {.ratio = 100}};
    for (const ExtractionLimits& limit : limits) {
        EXPECT_EQ(archive.extractAll(destination(), {.limits = limit}).error().code,
                  ErrorCode::kOverLimit);
        EXPECT_EQ(listing(), Paths());
    }
    EXPECT_EQ(archive.openEntry(0, {.limits = {.ratio = 100}}).error().code, ErrorCode::kOverLimit);
    // To the byte.
    const std::uint64_t below = 100'000 / archive[0].compressedSize;
    EXPECT_FALSE(archive.readEntry(0, {.limits = {.ratio = below}}));
    EXPECT_TRUE(archive.readEntry(0, {.limits = {.ratio = below + 1}}));
    EXPECT_TRUE(archive.extractAll(
        destination(), {.limits = {.bytes = 100'002, .entries = 3, .ratio = 1000, .memory = 1}}));
}

TEST_F(ReaderTest, AWindowThatIsLargerThanTheMemoryAllowedIsRefused) {
    const std::string data = prose(3'000'000);
    test::writeFile(home() / "data", std::string_view(data));
    for (const std::string method : {"lzma:d=16m", "xz:d=16m", "zstd", "ppmd:mem=16m"}) {
        const auto zip = home() / (method.substr(0, 3) + ".zip");
        const auto made =
            test::runProcess({"7zz", "a", "-bd", "-mm=" + method, zip, home() / "data"});
        if (made.exitCode != 0) {
            continue;  // it does not write all of them
        }
        const auto archive = Reader::open(zip);
        ASSERT_TRUE(archive);
        EXPECT_EQ(archive->readEntry(0, {.limits = {.memory = 3UL << 20U}}).error().code,
                  ErrorCode::kOutOfMemory)
            << method;
        EXPECT_TRUE(textOf(archive->readEntry(0, {.limits = {.memory = 40UL << 20U}}).value()) ==
                    data);
    }
}

TEST_F(ReaderTest, ProgressIsToldAndAJobCanBeEnded) {
    ZipBuilder zip;
    for (int i = 0; i < 40; ++i) {
        zip.add(deflated(std::to_string(i), prose(200'000, static_cast<unsigned>(i))));
    }
    zip.add(folder("folder/")).add(symbolicLink("link", "0"));
    const Reader archive = reader(zip);
    Progress last;
    std::stop_source stop;
    const ExtractionOptions watching{.stop = stop.get_token(),
                                     .progress = [&](const Progress& now) {
                                         EXPECT_GE(now.bytesDone, last.bytesDone);
                                         last = now;
                                     }};
    ASSERT_TRUE(archive.extractAll(destination(), watching));
    EXPECT_EQ(last.entriesDone, 42U);
    EXPECT_EQ(last.entriesTotal, 42U);
    EXPECT_EQ(last.bytesDone, 8'000'000U);
    EXPECT_EQ(last.bytesTotal, 8'000'000U);

    const ExtractionOptions ending{.stop = stop.get_token(),
                                   .progress = [&](const Progress&) { stop.request_stop(); }};
    EXPECT_EQ(archive.extractAll(home() / "ended", ending).error().code, ErrorCode::kCancelled);
    EXPECT_EQ(archive.test({.stop = stop.get_token()}).error().code, ErrorCode::kCancelled);
    for (const auto& file : std::filesystem::directory_iterator(home() / "ended")) {
        EXPECT_TRUE(file.is_directory() || file.file_size() == 200'000)
            << "no part of a file stands";
    }
}

// The second of the two begins what another thread looks at, and is found long before the first.
TEST_F(ReaderTest, OfSeveralFaultsTheFirstInTheArchiveIsTold) {
    ZipBuilder zip;
    for (int i = 0; i < 1100; ++i) {
        ZipEntry entry = stored(std::to_string(i), "data");
        entry.local.crc32 += i == 1023 || i == 1024 ? 1 : 0;
        zip.add(entry);
    }
    expectRefused(zip, ErrorCode::kHeaderMismatch, "1023");
}

TEST_F(ReaderTest, CommentsAreTold) {
    const auto made = test::runProcess({"python3",
                                        "-c",
                                        R"(
import sys, zipfile
entry = zipfile.ZipInfo("a")
entry.comment = b"of the entry"
with zipfile.ZipFile(sys.argv[1], "w") as archive:
    archive.writestr(entry, "x")
    archive.comment = b"of all"
)",
                                        archivePath().native()});
    ASSERT_EQ(made.exitCode, 0) << made.output;
    const auto archive = Reader::open(archivePath());
    ASSERT_TRUE(archive);
    EXPECT_EQ((*archive)[0].comment, "of the entry");
    EXPECT_EQ(archive->comment(), "of all");
}

}  // namespace
}  // namespace pellumar::archive
