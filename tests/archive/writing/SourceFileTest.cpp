#include "archive/writing/SourceFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <fstream>

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::archive {
namespace {

// A file written over while it was read passed as whole if its size stayed, with some of its bytes
// from before and some from after.
TEST(SourceFile, OneWrittenOverWhileItIsReadIsNoWholeFile) {
    const pellumar::test::TemporaryFolder folder;
    const std::filesystem::path path = folder / "source";
    for (const bool timeIsSetBack : {false, true}) {
        pellumar::test::writeFile(path, "before, before");
        // Long ago: times are too coarse to tell what happens at once.
        const std::array<timespec, 2> longAgo = {
            {{.tv_sec = 1'000'000, .tv_nsec = 0}, {.tv_sec = 1'000'000, .tv_nsec = 0}}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), longAgo.data(), 0), 0);
        struct stat before {};
        ASSERT_EQ(::stat(path.c_str(), &before), 0);
        const auto source = SourceFile::open(path, {});
        ASSERT_TRUE(source);
        std::array<std::uint8_t, 7> half{};
        ASSERT_TRUE(source->read(0, half, half.size()));

        struct stat now = before;
        while (now.st_ctim.tv_sec == before.st_ctim.tv_sec &&
               now.st_ctim.tv_nsec == before.st_ctim.tv_nsec) {
            std::fstream(path, std::ios::in | std::ios::out) << "afterwards, ok";
            if (timeIsSetBack) {
                ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), longAgo.data(), 0), 0);
            }
            ASSERT_EQ(::stat(path.c_str(), &now), 0);
        }
        ASSERT_EQ(now.st_size, before.st_size);
        const auto rest = source->read(half.size(), half, half.size());
        ASSERT_FALSE(rest);
        EXPECT_EQ(rest.error().code, ErrorCode::kSourceChanged);
    }
}

}  // namespace
}  // namespace pellumar::archive
