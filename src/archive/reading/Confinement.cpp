#include "archive/reading/Confinement.h"

#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>

#include "archive/base/File.h"

namespace pellumar::archive {

namespace {

// Rights that the headers of older kernels do not name, and the version of Landlock that first
// knows each.
constexpr std::uint64_t kTruncate = 1ULL << 14U;
constexpr std::uint64_t kDeviceControl = 1ULL << 15U;
constexpr int kKnowsRefer = 2;
constexpr int kKnowsTruncate = 3;
constexpr int kKnowsDeviceControl = 5;

constexpr std::uint64_t kLeft = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_READ_FILE |
                                LANDLOCK_ACCESS_FS_READ_DIR | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                                LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_DIR |
                                LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SYM |
                                LANDLOCK_ACCESS_FS_REFER | kTruncate;
constexpr std::uint64_t kNowhere = LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                                   LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                                   LANDLOCK_ACCESS_FS_MAKE_BLOCK | kDeviceControl;

// 0 without Landlock.
int versionOfLandlock() {
    static const int kVersion = static_cast<int>(
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION));
    return kVersion > 0 ? kVersion : 0;
}

// All rights that the kernel can take away.
std::uint64_t known() {
    std::uint64_t rights = kLeft | kNowhere;
    const int version = versionOfLandlock();
    rights &= version < kKnowsRefer ? ~std::uint64_t{LANDLOCK_ACCESS_FS_REFER} : rights;
    rights &= version < kKnowsTruncate ? ~kTruncate : rights;
    rights &= version < kKnowsDeviceControl ? ~kDeviceControl : rights;
    return rights;
}

}  // namespace

bool canConfine() {
    return versionOfLandlock() > 0;
}

bool confineTo(int folder) {
    // What the C library reads of the time zone when it is first asked for one.
    ::tzset();
    const landlock_ruleset_attr taken{.handled_access_fs = known()};
    const File rules(
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &taken, sizeof taken, 0)));
    const landlock_path_beneath_attr left{.allowed_access = known() & kLeft, .parent_fd = folder};
    return rules.isOpen() &&
           ::syscall(
               SYS_landlock_add_rule, rules.descriptor(), LANDLOCK_RULE_PATH_BENEATH, &left, 0) ==
               0 &&
           // Or whoever is started from here could gain rights, for which the kernel refuses.
           ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::syscall(SYS_landlock_restrict_self, rules.descriptor(), 0) == 0;
}

}  // namespace pellumar::archive
