#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <thread>
#include <utility>

#include "archive/ExtractionTest.h"

namespace pellumar::archive {
namespace {

class SpecialFilesTest : public ExtractionTest {
  protected:
    // Info-ZIP's extended timestamp: the modification time alone.
    static std::string timeField(std::uint32_t seconds) {
        return test::extraField(0x5455, std::string("\x01", 1) + test::littleEndian(seconds, 4));
    }

    // Lets the system call fail with EPERM in this thread and those that it starts, as file systems
    // do that keep no owners.
    static bool forbid(long systemCall) {
        std::array<sock_filter, 4> program = {{
            BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(systemCall), 0, 1),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
            BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        }};
        const sock_fprog filter{.len = program.size(), .filter = program.data()};
        return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
               ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
    }
};

TEST_F(SpecialFilesTest, DevicesAndTheirKinBecomeRegularFiles) {
    for (const unsigned type : {S_IFIFO, S_IFSOCK, S_IFCHR, S_IFBLK}) {
        const auto report = unzip(ZipBuilder().add(stored("special", "data").mode(type | 0600U)));
        ASSERT_TRUE(report) << report.error().describe();
        EXPECT_EQ(status("special").st_mode, S_IFREG | 0600U);
        EXPECT_EQ(text("special"), "data");
        EXPECT_EQ(countOf(report->warnings, WarningCode::kSpecialFile), 1U);
    }
}

TEST_F(SpecialFilesTest, SetIdAndStickyBitsAreMasked) {
    const mode_t before = ::umask(0);
    const auto report = unzip(ZipBuilder()
                                  .add(stored("program", "x").mode(S_IFREG | 06755U))
                                  .add(folder("shared/").mode(S_IFDIR | 03777U)));
    ::umask(before);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_EQ(permissions("program"), 0755U);
    EXPECT_EQ(permissions("shared"), 0777U);
    EXPECT_EQ(countOf(report->warnings, WarningCode::kSetIdBitsDropped), 2U);
}

// A file of 0666 came out readable for all under a umask that says otherwise.
TEST_F(SpecialFilesTest, PermissionsAreThoseOfTheEntryLessTheUmask) {
    const mode_t before = ::umask(027);
    ZipBuilder zip;
    zip.add(stored("a", "x").mode(S_IFREG | 0666U))
        .add(stored("b", "x").mode(S_IFREG | 0400U))
        .add(stored("c", "").mode(S_IFREG | 0751U))
        .add(folder("locked/", 0555))
        .add(stored("locked/in", "x"))
        .add(folder("locked/deep/", 0500))
        .add(symbolicLink("locked/link", "in"));
    const auto report = unzip(zip);
    ::umask(before);
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_TRUE(report->warnings.empty());
    EXPECT_EQ(permissions("a"), 0640U);
    EXPECT_EQ(permissions("b"), 0400U);
    EXPECT_EQ(permissions("c"), 0750U);
    EXPECT_EQ(permissions("locked"), 0550U);
    EXPECT_EQ(permissions("locked/deep"), 0500U);
    EXPECT_EQ(text("locked/link"), "x");
}

TEST_F(SpecialFilesTest, NoPermissionIsGivenThatTheFolderWithholdsFromNewFiles) {
    // acl(5) as the kernel takes it: version 2; owner, group and others, only the owner may.
    struct Entry {
        std::uint16_t tag;
        std::uint16_t permissions;
        std::uint32_t id;
    };
    constexpr std::uint32_t kNobody = 0xFFFFFFFF;
    const struct {
        std::uint32_t version = 2;
        std::array<Entry, 3> entries = {{{1, 7, kNobody}, {4, 0, kNobody}, {0x20, 0, kNobody}}};
    } ownerOnly;
    // What is made in it inherits that.
    if (::setxattr(
            home().path().c_str(), "system.posix_acl_default", &ownerOnly, sizeof(ownerOnly), 0) !=
        0) {
        ASSERT_EQ(errno, ENOTSUP);
        GTEST_SKIP() << "no access lists on this file system";
    }
    const auto report = unzip(
        ZipBuilder().add(stored("file", "x").mode(S_IFREG | 0644U)).add(folder("folder/", 0755)));
    ASSERT_TRUE(report) << report.error().describe();
    EXPECT_TRUE(report->warnings.empty());
    EXPECT_EQ(permissions("file"), 0600U);
    EXPECT_EQ(permissions("folder"), 0700U);
}

TEST_F(SpecialFilesTest, WhatCannotBeRestoredIsAWarning) {
    for (const auto& [systemCall, losses] : {std::pair(SYS_utimensat, 2U), {SYS_fchmod, 1U}}) {
        ZipBuilder zip;
        zip.add(folder("locked/", 0500)).add(stored("locked/file", "data"));
        std::thread([this, &zip, systemCall = systemCall, losses = losses] {
            ASSERT_TRUE(forbid(systemCall));
            const auto report = unzip(zip);
            ASSERT_TRUE(report) << report.error().describe();
            EXPECT_EQ(report->warnings.count(), losses);
            EXPECT_EQ(countOf(report->warnings, WarningCode::kMetadataNotRestored), losses);
        }).join();
        EXPECT_EQ(text("locked/file"), "data");
    }
}

TEST_F(SpecialFilesTest, DosAttributesGiveUsualPermissions) {
    ZipBuilder zip;
    ZipEntry plain = stored("plain", "x").with(&ZipHeader::host, 0);
    plain.central.attributes = 0x20;
    ZipEntry readOnly = stored("read-only", "x").with(&ZipHeader::host, 0);
    readOnly.central.attributes = 0x01;
    ZipEntry inside = stored("folder", "").with(&ZipHeader::host, 0);
    inside.central.attributes = 0x10;
    ASSERT_TRUE(unzip(zip.add(plain).add(readOnly).add(inside)));
    EXPECT_EQ(permissions("plain"), 0644U);
    EXPECT_EQ(permissions("read-only"), 0444U);
    EXPECT_EQ(status("folder").st_mode, S_IFDIR | 0755U);
}

TEST_F(SpecialFilesTest, TimesAreRestored) {
    constexpr std::uint32_t kFile = 981173106;
    constexpr std::uint32_t kFolder = 1234567891;
    ZipBuilder zip;
    ZipEntry fromDos = stored("dos", "x");
    fromDos.with(&ZipHeader::date, (21U << 9U) | (2U << 5U) | 3U);
    fromDos.with(&ZipHeader::time, (4U << 11U) | (5U << 5U) | 3U);
    zip.add(folder("d/").with(&ZipHeader::extra, timeField(kFolder)))
        .add(stored("d/file", "x").with(&ZipHeader::extra, timeField(kFile)))
        .add(folder("d/e/").with(&ZipHeader::extra, timeField(kFile)))
        .add(symbolicLink("d/link", "file").with(&ZipHeader::extra, timeField(kFile)))
        .add(fromDos);
    ASSERT_TRUE(unzip(zip));
    EXPECT_EQ(status("d/file").st_mtim.tv_sec, kFile);
    EXPECT_EQ(status("d/e").st_mtim.tv_sec, kFile);
    EXPECT_EQ(status("d/link").st_mtim.tv_sec, kFile);
    EXPECT_EQ(status("d").st_mtim.tv_sec, kFolder);  // though files came into it afterwards
    const std::time_t dos = status("dos").st_mtim.tv_sec;
    std::tm local{};
    ASSERT_NE(::localtime_r(&dos, &local), nullptr);
    EXPECT_EQ(local.tm_year, 101);
    EXPECT_EQ(local.tm_hour, 4);
    EXPECT_EQ(local.tm_sec, 6);
}

}  // namespace
}  // namespace pellumar::archive
