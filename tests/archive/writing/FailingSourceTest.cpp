#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "archive/writing/ArchiveOutput.h"
#include "archive/writing/ArchiveWriterTest.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/DeflateCompressor.h"
#include "archive/writing/SampleContent.h"

namespace pellumar::archive {
namespace {

namespace fs = std::filesystem;
using pellumar::test::SampleKind;

class FailingSourceTest : public ArchiveWriterTest {
  protected:
    void SetUp() override {
        put("first", "first content");
        put("last", "last content");
    }

    // The size of the archive that is being made, which has no name yet.
    [[nodiscard]] std::uintmax_t unfinishedSize() const {
        std::error_code gone;
        for (const fs::directory_entry& open : fs::directory_iterator("/proc/self/fd")) {
            const std::string to = fs::read_symlink(open.path(), gone);
            if (to.starts_with(archives_.path().native() + "/") && !fs::is_directory(open, gone)) {
                return fs::file_size(open.path(), gone);
            }
        }
        return 0;
    }

    // Adds the paths between two good ones, with and without announcing, and expects each to fail
    // with `code` by its name and to leave nothing behind.
    void expectFailure(const std::vector<std::string>& paths, ErrorCode code) {
        for (const bool ahead : {false, true}) {
            fs::remove(archivePath());
            auto writer = create();
            std::vector<Source> all = {source("first")};
            for (const std::string& path : paths) {
                all.push_back(source(path));
            }
            all.push_back(source("last"));
            if (ahead) {
                writer->compressAhead(all);
            }
            for (const Source& next : all) {
                const auto added = writer->addEntry(next);
                if (next.name == "first" || next.name == "last") {
                    ASSERT_TRUE(added) << added.error().describe();
                } else {
                    ASSERT_EQ(codeOf(added), code) << next.name;
                    EXPECT_EQ(added.error().entry, next.name);
                }
            }
            ASSERT_TRUE(writer->close());
            expectSound();
            EXPECT_EQ(listed(), "first\nlast\n");
        }
    }
};

TEST_F(FailingSourceTest, UnreadableFilesFailAloneAndByName) {
    fs::create_symlink("nowhere", sources_ / "dangling");
    fs::create_symlink("loop", sources_ / "loop");
    expectFailure({"missing", "dangling", "loop", "first/below", "no/such/folder"},
                  ErrorCode::kSourceUnreadable);
}

TEST_F(FailingSourceTest, WhatIsNoFileOrFolderIsRefusedAtOnce) {
    ASSERT_EQ(::mkfifo((sources_ / "fifo").c_str(), 0600), 0);
    const int socketDescriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string socketPath = sources_ / "socket";
    ASSERT_LT(socketPath.size(), sizeof(address.sun_path));
    socketPath.copy(address.sun_path, socketPath.size());
    ASSERT_EQ(
        ::bind(socketDescriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    fs::create_symlink("/dev/zero", sources_ / "device");
    fs::create_symlink("fifo", sources_ / "link");
    expectFailure({"fifo", "socket", "device", "link"}, ErrorCode::kSourceNotSupported);
    ::close(socketDescriptor);
}

// Files that the kernel makes up as they are read shrink by themselves: those of /proc say that
// they are empty, those of /sys that they have 4,096 bytes.
TEST_F(FailingSourceTest, AFileOfAnotherSizeThanItSaysDoesNotPassAsWhole) {
    fs::create_symlink("/proc/self/status", sources_ / "longer");
    expectFailure({"longer"}, ErrorCode::kSourceChanged);
    for (const fs::path kernelFile :
         {"/sys/kernel/uevent_seqnum", "/sys/kernel/mm/transparent_hugepage/enabled"}) {
        if (fs::exists(kernelFile)) {
            fs::create_symlink(kernelFile, sources_.path() / kernelFile.filename());
            expectFailure({kernelFile.filename()}, ErrorCode::kSourceChanged);
        }
    }
}

// The first chunks of this file are in the archive when it is cut off.
TEST_F(FailingSourceTest, AFileCutOffInTheMiddleIsTakenBack) {
    put("large", pellumar::test::sampleContent(SampleKind::kNoise, 4 * kChunk));
    fs::resize_file(sources_ / "large", 3ULL << 30U);
    auto writer = create();
    ASSERT_TRUE(writer->addEntry(source("first")));
    std::atomic<bool> cut = false;
    std::thread cutter([this, &cut] {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (unfinishedSize() < kChunk && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
        fs::resize_file(sources_ / "large", 2 * kChunk);
        cut = true;
    });
    const auto added = writer->addEntry(source("large"));
    cutter.join();
    ASSERT_TRUE(cut);
    EXPECT_EQ(codeOf(added), ErrorCode::kSourceChanged);
    ASSERT_TRUE(writer->addEntry(source("last")));
    ASSERT_TRUE(writer->close());
    expectSound();
    EXPECT_EQ(listed(), "first\nlast\n");
    EXPECT_LT(fs::file_size(archivePath()), 1000U);
}

// Lets no file of this process grow beyond a size: a full disk that every machine has.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;

  private:
    rlimit before_{};
    sighandler_t handler_ = nullptr;
};

TEST_F(FailingSourceTest, AfterAFailedWriteTheEarlierEntriesStay) {
    put("small", pellumar::test::sampleContent(SampleKind::kNoise, 200'000));
    put("large", pellumar::test::sampleContent(SampleKind::kNoise, 5 * kChunk));
    auto writer = create();
    ASSERT_TRUE(writer->addEntry(source("first")));
    {
        const FileSizeLimit limit(100'000);
        ASSERT_TRUE(writer->addEntry(source("small"))) << "it is in the buffer";
        EXPECT_EQ(codeOf(writer->addEntry(source("large"))), ErrorCode::kWriteFailed);
        EXPECT_EQ(codeOf(writer->addEntry(source("large"))), ErrorCode::kWriteFailed);
    }
    {
        const FileSizeLimit limit(3 * kChunk);  // in the middle of the entry
        EXPECT_EQ(codeOf(writer->addEntry(source("large"))), ErrorCode::kWriteFailed);
    }
    ASSERT_TRUE(writer->addEntry(source("last")));
    ASSERT_TRUE(writer->close());
    expectSound();
    EXPECT_EQ(listed(), "first\nsmall\nlast\n");
}

// The failed write got half of the buffer into the file, more than what came after needed.
TEST_F(FailingSourceTest, NothingOfAFailedWriteStandsBehindTheEnd) {
    ArchiveOutput output(*PendingFile::create(archivePath(), PendingFile::Existing::kRefuse));
    const std::vector<std::uint8_t> bytes(200'000, 7);
    const auto some = ByteView(bytes).first(1000);
    ASSERT_TRUE(output.append(some));
    ASSERT_TRUE(output.append(bytes));
    {
        const FileSizeLimit limit(100'000);
        ASSERT_FALSE(output.append(bytes));
    }
    output.rewind(some.size());
    ASSERT_TRUE(output.append(some));
    ASSERT_TRUE(output.close());
    EXPECT_EQ(fs::file_size(archivePath()), 2 * some.size());
}

TEST_F(FailingSourceTest, AFailedWriteOfTheDirectoryIsToldByClosing) {
    put("small", pellumar::test::sampleContent(SampleKind::kNoise, 200'000));
    auto writer = create();
    ASSERT_TRUE(writer->addEntry(source("small")));
    const FileSizeLimit limit(100'000);
    EXPECT_EQ(codeOf(writer->close()), ErrorCode::kWriteFailed);
    EXPECT_EQ(codeOf(writer->addEntry(source("first"))), ErrorCode::kInvalidArgument);
    writer.reset();
    EXPECT_TRUE(fs::is_empty(archives_.path()));
}

// As when a thread has run out of memory where it could not blame an entry for it.
TEST(CompressionQueue, TheWriterDoesNotWaitForWorkersThatAreGone) {
    CompressionQueue queue(1024, 1024, 4096);
    queue.announce({{"a", "/a"}});
    std::thread worker([&queue] {
        ASSERT_TRUE(queue.takeTask());
        queue.fail(failure(ErrorCode::kOutOfMemory).value());
    });
    for (const char* path : {"a", "b"}) {
        const auto opened = queue.begin({path, std::filesystem::path("/") / path});
        ASSERT_FALSE(opened);
        EXPECT_EQ(opened.error().code, ErrorCode::kOutOfMemory);
        queue.end();
    }
    worker.join();
    // The next one has no entry to leave.
    queue.end();
}

}  // namespace
}  // namespace pellumar::archive
