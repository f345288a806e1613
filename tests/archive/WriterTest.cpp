#include "archive/Writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "archive/ExtractionTest.h"
#include "archive/writing/SampleContent.h"
#include "support/Process.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using pellumar::test::SampleKind;

class WriterTest : public ExtractionTest {
  protected:
    WriterTest() { fs::create_directory(home() / "in"); }

    static NewEntry buffer(std::string name, std::string_view text) {
        return {
            .name = std::move(name),
            .content = std::make_shared<const std::vector<std::uint8_t>>(text.begin(), text.end())};
    }
    static NewEntry stream(std::string name, std::vector<std::uint8_t> all, std::size_t piece) {
        auto left = std::make_shared<std::vector<std::uint8_t>>(std::move(all));
        return {.name = std::move(name), .content = [left, piece](MutableBytes room) {
                    const std::size_t size = std::min({left->size(), piece, room.size()});
                    const auto end = left->begin() + static_cast<std::ptrdiff_t>(size);
                    std::copy(left->begin(), end, room.begin());
                    left->erase(left->begin(), end);
                    return Result<std::size_t>(size);
                }};
    }
    NewEntry file(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        pellumar::test::writeFile(home() / "in" / name, bytes);
        return {.name = name, .content = NewEntry::FromPath{.path = home() / "in" / name}};
    }

    // Every kind of source, with sizes on both sides of a chunk.
    std::vector<NewEntry> all() {
        fs::create_directory_symlink("a", home() / "in/link");
        NewEntry stored = file("stored", sample(SampleKind::kText, 2'500'000));
        stored.options = {.level = 0, .comment = "größer", .permissions = 0600};
        NewEntry small = file("level9", sample(SampleKind::kText, 300'000));
        small.options.level = 9;
        small.options.modified = std::timespec{.tv_sec = 1'000'000'000, .tv_nsec = 0};
        return {{.name = "folder"},
                file("a", sample(SampleKind::kMixed, 3'000'000)),
                std::move(stored),
                std::move(small),
                buffer("folder/buffer", "in memory"),
                buffer("folder/empty", ""),
                stream("stream", sample(SampleKind::kText, 2'097'152), 70'000),
                stream("short stream", sample(SampleKind::kText, 1000), 3),
                {.name = "link", .content = NewEntry::FromPath{home() / "in/link", true}},
                {.name = "folder/other", .content = NewEntry::Link{"buffer"}}};
    }

    static std::vector<std::uint8_t> sample(SampleKind kind, std::size_t size) {
        return pellumar::test::sampleContent(kind, size);
    }

    void expectAllCameOut(const fs::path& in) {
        EXPECT_TRUE(test::readFile(in / "a") == sample(SampleKind::kMixed, 3'000'000));
        EXPECT_TRUE(test::readFile(in / "stored") == sample(SampleKind::kText, 2'500'000));
        EXPECT_TRUE(test::readFile(in / "level9") == sample(SampleKind::kText, 300'000));
        EXPECT_TRUE(test::readFile(in / "stream") == sample(SampleKind::kText, 2'097'152));
        EXPECT_TRUE(test::readFile(in / "short stream") == sample(SampleKind::kText, 1000));
        EXPECT_EQ(readText(in / "folder/buffer"), "in memory");
        EXPECT_EQ(fs::file_size(in / "folder/empty"), 0U);
        EXPECT_EQ(fs::read_symlink(in / "link"), "a");
        EXPECT_EQ(fs::read_symlink(in / "folder/other"), "buffer");
        struct stat status {};
        ASSERT_EQ(::stat((in / "stored").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0600U);
        ASSERT_EQ(::stat((in / "level9").c_str(), &status), 0);
        EXPECT_EQ(status.st_mtim.tv_sec, 1'000'000'000);
    }

    // By other programs and by ourselves.
    void expectSound() {
        for (const auto& command : std::vector<std::vector<std::string>>{
                 {"unzip", "-q", archivePath(), "-d", home() / "unzip"},
                 {"7zz", "x", "-bd", archivePath(), "-o" + (home() / "7zz").native()},
                 {"python3", "-m", "zipfile", "-t", archivePath()}}) {
            const auto result = test::runProcess(command);
            EXPECT_EQ(result.exitCode, 0) << command[0] << ": " << result.output;
        }
        expectAllCameOut(home() / "unzip");
        expectAllCameOut(home() / "7zz");
        const auto archive = Reader::open(archivePath());
        ASSERT_TRUE(archive);
        EXPECT_TRUE(archive->test().value().empty());
        EXPECT_EQ((*archive)[2].comment, "größer");
        EXPECT_EQ((*archive)[2].method, 0);
        EXPECT_EQ(archive->comment(), "von allem");
        ASSERT_TRUE(archive->extractAll(home() / "ours"));
        expectAllCameOut(home() / "ours");
    }
};

TEST_F(WriterTest, EverySourceGoesIn) {
    auto writer = Writer::create(archivePath(), {.comment = "von allem"});
    ASSERT_TRUE(writer);
    const auto added = writer->addAll(all());
    ASSERT_TRUE(added) << added.error().describe();
    ASSERT_TRUE(writer->close());
    expectSound();
}

// A pipe cannot be gone back in, and the sizes of what is over a chunk are told behind it.
TEST_F(WriterTest, EverySourceGoesIntoAPipe) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    std::thread copying([&] {
        const File from(pipe[0]);
        File to(::open(archivePath().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
        std::vector<std::uint8_t> buffer(65536);
        for (;;) {
            const ssize_t count = ::read(from.descriptor(), buffer.data(), buffer.size());
            if (count <= 0 || !to.write({buffer.data(), static_cast<std::size_t>(count)})) {
                break;
            }
        }
    });
    auto writer = Writer::toDescriptor(File(pipe[1]), {.comment = "von allem"});
    ASSERT_TRUE(writer);
    const auto added = writer->addAll(all());
    EXPECT_TRUE(added) << added.error().describe();
    EXPECT_TRUE(writer->close());
    copying.join();
    expectSound();
}

// Where an archive goes that cannot be gone back in.
struct MemoryOutput final : ByteOutput {
    explicit MemoryOutput(std::string* to) : all(to) {}
    Result<> write(ByteView bytes) override {
        all->append(asText(bytes));
        return {};
    }
    std::string* all;
};

TEST_F(WriterTest, EncryptedEntriesGoOutInOneGo) {
    for (const NewEncryption way : {NewEncryption::kAes256, NewEncryption::kTraditional}) {
        std::string out;
        auto writer = Writer::toOutput(std::make_unique<MemoryOutput>(&out));
        ASSERT_TRUE(writer);
        std::vector<NewEntry> entries = {
            buffer("small", "x"),
            file("large", sample(SampleKind::kText, 3'000'000)),
            stream("stream", sample(SampleKind::kText, 2'000'000), 999)};
        for (NewEntry& entry : entries) {
            entry.options.password = std::make_shared<const Password>("secret");
            entry.options.encryption = way;
        }
        const auto added = writer->addAll(entries);
        ASSERT_TRUE(added) << added.error().describe();
        ASSERT_TRUE(writer->close());
        test::writeFile(archivePath(), std::string_view(out));
        const auto tested = test::runProcess({"7zz", "t", "-bd", "-psecret", archivePath()});
        EXPECT_EQ(tested.exitCode, 0) << tested.output;
        const Password password("secret");
        const auto archive = Reader::open(archivePath());
        ASSERT_TRUE(archive);
        const auto wrong = archive->test({.password = &password});
        ASSERT_TRUE(wrong);
        EXPECT_TRUE(wrong->empty()) << (*wrong)[0].describe();
    }
}

TEST_F(WriterTest, AnOutputThatCannotBeTakenBackEndsWithAFailedEntry) {
    std::string out;
    auto writer = Writer::toOutput(std::make_unique<MemoryOutput>(&out));
    ASSERT_TRUE(writer);
    ASSERT_TRUE(writer->add(buffer("a", "x")));
    // Found out before anything has left.
    EXPECT_EQ(
        writer->add({.name = "gone", .content = NewEntry::FromPath{home() / "gone"}}).error().code,
        ErrorCode::kSourceUnreadable);
    ASSERT_TRUE(writer->add(buffer("b", "y")));
    std::size_t calls = 0;
    const NewEntry breaking{
        .name = "breaking", .content = [&calls](MutableBytes room) -> Result<std::size_t> {
            std::generate(room.begin(), room.end(), [] { return rand(); });
            return ++calls < 4 ? Result<std::size_t>(room.size()) : failure(ErrorCode::kReadFailed);
        }};
    EXPECT_EQ(writer->add(breaking).error().code, ErrorCode::kReadFailed);
    EXPECT_EQ(writer->add(buffer("c", "z")).error().code, ErrorCode::kWriteFailed);
    EXPECT_FALSE(writer->close());
    EXPECT_FALSE(writer->close());
}

TEST_F(WriterTest, ManyOfOneNameAreNumberedInNoTime) {
    std::string out;
    auto writer = Writer::toOutput(std::make_unique<MemoryOutput>(&out),
                                   {.sameNames = SameNames::kRename, .threads = 1});
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 20'000; ++i) {
        ASSERT_TRUE(writer->add({.name = "link", .content = NewEntry::Link{"x"}}));
    }
    // Trying every number from 2 on takes far longer.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    ASSERT_TRUE(writer->close());
    EXPECT_NE(out.find("link (20000)"), std::string::npos);
}

TEST_F(WriterTest, NoNameHidesAnother) {
    const auto names = [this](SameNames policy) {
        auto writer = Writer::create(archivePath(), {.replace = true, .sameNames = policy});
        std::vector<NewEntry> entries;
        for (const char* name : {"p.jpg", "./p.jpg", "p.jpg/in", "d/x", "d", "d/x", "p.jpg/too"}) {
            entries.push_back(buffer(name, name));
        }
        for (const char* folder : {"d", "p.jpg"}) {
            entries.push_back({.name = folder});
        }
        std::vector<ErrorCode> codes;
        EXPECT_TRUE(writer->addAll(entries, [&](std::size_t, const Result<>& added) {
            codes.push_back(added ? ErrorCode{} : added.error().code);
            return Writer::Next::kGoOn;
        }));
        EXPECT_TRUE(writer->close());
        return codes;
    };
    constexpr ErrorCode kTaken = ErrorCode::kConflictingNames;
    EXPECT_EQ(names(SameNames::kRefuse),
              (std::vector<ErrorCode>{{}, kTaken, kTaken, {}, kTaken, kTaken, kTaken, {}, kTaken}));
    EXPECT_EQ(names(SameNames::kRename), std::vector<ErrorCode>(9));
    ASSERT_TRUE(unzipItem(archivePath(), destination()));
    EXPECT_EQ(listing(),
              (Paths{"d (2)",
                     "d/",
                     "d/x",
                     "d/x (2)",
                     "p (2).jpg",
                     "p (3).jpg/",
                     "p (3).jpg/in",
                     "p (3).jpg/too",
                     "p (4).jpg/",
                     "p.jpg"}));
    EXPECT_EQ(text("d (2)"), "d");
    EXPECT_EQ(text("p (2).jpg"), "./p.jpg");
}

TEST_F(WriterTest, ReproducibleArchivesDependOnContentsAlone) {
    std::vector<std::vector<std::uint8_t>> made;
    for (const char* zone : {"UTC", "Asia/Tokyo", "America/Lima"}) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        for (const mode_t mode : {0600U, 0664U}) {
            NewEntry one = file("one", sample(SampleKind::kText, 5000));
            ::chmod((home() / "in/one").c_str(), mode);
            NewEntry timed = buffer("timed", "x");
            timed.options.modified = std::timespec{.tv_sec = 1'600'000'001, .tv_nsec = 5};
            auto writer = Writer::create(archivePath(), {.replace = true, .reproducible = true});
            ASSERT_TRUE(writer->addAll({{.name = "folder"}, one, timed}));
            ASSERT_TRUE(writer->close());
            made.push_back(test::readFile(archivePath()));
        }
    }
    ::unsetenv("TZ");
    ::tzset();
    for (const auto& other : made) {
        EXPECT_EQ(other, made.front());
    }
}

TEST_F(WriterTest, WhatIsNotClosedOrIsCancelledLeavesNothing) {
    std::stop_source stop;
    {
        auto writer = Writer::create(archivePath(), {.stop = stop.get_token()});
        ASSERT_TRUE(writer->add(buffer("a", "x")));
        stop.request_stop();
        EXPECT_EQ(writer->add(buffer("b", "x")).error().code, ErrorCode::kCancelled);
        EXPECT_EQ(writer->add({.name = "folder"}).error().code, ErrorCode::kCancelled);
    }
    const fs::directory_iterator left(home().path());
    EXPECT_EQ(std::distance(left, {}), 2) << "nothing beside the sources and the neighbour";
    auto writer = Writer::create(archivePath());
    for (const NewEntry& bad : {buffer("", "x"),
                                buffer("../x", "x"),
                                NewEntry{.name = "link", .content = NewEntry::Link{""}},
                                NewEntry{.name = "level", .options = {.level = 10}},
                                NewEntry{.name = "comment", .options = {.comment = "\xFF"}}}) {
        EXPECT_EQ(writer->add(bad).error().code, ErrorCode::kInvalidArgument) << bad.name;
    }
}

TEST_F(WriterTest, AddAllTellsOfEachEntryAndTriesAgain) {
    Progress last;
    auto writer =
        Writer::create(archivePath(), {.progress = [&last](const Progress& now) { last = now; }});
    std::vector<NewEntry> entries;
    entries.reserve(30);
    for (int i = 0; i < 30; ++i) {
        entries.push_back(file(std::to_string(i), sample(SampleKind::kText, 10'000)));
    }
    entries[20].content = NewEntry::FromPath{home() / "in/late"};
    std::vector<std::size_t> told;
    ASSERT_TRUE(writer->addAll(entries, [&](std::size_t index, const Result<>& added) {
        told.push_back(index);
        if (!added) {
            pellumar::test::writeFile(home() / "in/late", std::string_view("late"));
            return Writer::Next::kAgain;
        }
        return Writer::Next::kGoOn;
    }));
    EXPECT_EQ(told.size(), 31U);
    EXPECT_EQ(told[21], 20U);
    ASSERT_TRUE(writer->addAll({buffer("more", "1234"), {.name = "folder"}}));
    ASSERT_TRUE(writer->close());
    EXPECT_EQ(last.entriesDone, 32U);
    EXPECT_EQ(last.entriesTotal, 32U);
    EXPECT_EQ(last.bytesDone, 29U * 10'000 + 4 + 4);
    EXPECT_EQ(Reader::open(archivePath())->size(), 32U);
}

}  // namespace
}  // namespace pellumar::archive
