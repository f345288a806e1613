#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>
#include <string_view>

// To be loaded before a program (LD_PRELOAD): writes down, in their order, the calls that change a
// disk and those that flush it, for powercut_test.py to play back. Into the file DISK_JOURNAL goes
// for each of them a line and what follows it:
//
//     CALL INODE NUMBER LENGTH\n    and LENGTH bytes: a path, two of them with a NUL between, or
//     data
//
// openat2, which needs no libc, is answered as on a kernel without it.

namespace {

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

// Held while a call is made and written down, so that both have one order.
std::mutex& order() {
    static std::mutex mutex;
    return mutex;
}

std::uint64_t inodeOf(int fd) {
    struct stat status {};
    return ::fstat(fd, &status) == 0 ? status.st_ino : 0;
}

bool isFile(int fd) {
    struct stat status {};
    return ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

// Where a path that a call was given leads, whatever the folder that it starts at.
std::string fullPath(int folder, const char* path) {
    if (*path == '/') {
        return path;
    }
    char start[4096];
    const std::string link =
        folder == AT_FDCWD ? "/proc/self/cwd" : "/proc/self/fd/" + std::to_string(folder);
    const ssize_t length = ::readlink(link.c_str(), start, sizeof start);
    return std::string(start, length < 0 ? 0 : static_cast<std::size_t>(length)) + "/" + path;
}

std::string two(const std::string& from, const std::string& to) {
    return from + std::string(1, '\0') + to;
}

void note(const char* call, std::uint64_t inode, std::int64_t number, std::string_view text) {
    static const int journal = [] {
        const char* path = std::getenv("DISK_JOURNAL");
        return static_cast<int>(::syscall(SYS_openat,
                                          AT_FDCWD,
                                          path == nullptr ? "" : path,
                                          O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC,
                                          0600));
    }();
    const int before = errno;
    std::string line = std::string(call) + " " + std::to_string(inode) + " " +
                       std::to_string(number) + " " + std::to_string(text.size()) + "\n";
    line += text;
    static_cast<void>(!::syscall(SYS_write, journal, line.data(), line.size()));
    errno = before;
}

void noteOpened(int fd, int folder, const char* path, int flags) {
    if (fd < 0) {
        return;
    }
    if ((flags & O_TMPFILE) == O_TMPFILE) {
        note("make", inodeOf(fd), 0, {});
    } else if ((flags & O_CREAT) != 0) {
        note("make", inodeOf(fd), 0, fullPath(folder, path));
    }
    if ((flags & O_TRUNC) != 0) {
        note("truncate", inodeOf(fd), 0, {});
    }
}

mode_t modeOf(va_list rest, int flags) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

}  // namespace

// A call that returns 0 where it changed something, which `noted` writes down then.
#define NOTED(name, parameters, arguments, noted)                \
    extern "C" int name parameters {                             \
        static const auto real = next<decltype(&::name)>(#name); \
        const std::scoped_lock lock(order());                    \
        const int done = real arguments;                         \
        if (done == 0) {                                         \
            noted;                                               \
        }                                                        \
        return done;                                             \
    }

#define NOTED_OPEN(name)                                         \
    extern "C" int name(const char* path, int flags, ...) {      \
        static const auto real = next<decltype(&::name)>(#name); \
        va_list rest;                                            \
        va_start(rest, flags);                                   \
        const mode_t mode = modeOf(rest, flags);                 \
        va_end(rest);                                            \
        const std::scoped_lock lock(order());                    \
        const int fd = real(path, flags, mode);                  \
        noteOpened(fd, AT_FDCWD, path, flags);                   \
        return fd;                                               \
    }

#define NOTED_OPENAT(name)                                              \
    extern "C" int name(int folder, const char* path, int flags, ...) { \
        static const auto real = next<decltype(&::name)>(#name);        \
        va_list rest;                                                   \
        va_start(rest, flags);                                          \
        const mode_t mode = modeOf(rest, flags);                        \
        va_end(rest);                                                   \
        const std::scoped_lock lock(order());                           \
        const int fd = real(folder, path, flags, mode);                 \
        noteOpened(fd, folder, path, flags);                            \
        return fd;                                                      \
    }

#define NOTED_PWRITE(name)                                                          \
    extern "C" ssize_t name(int fd, const void* from, size_t count, off_t at) {     \
        static const auto real = next<decltype(&::name)>(#name);                    \
        const std::scoped_lock lock(order());                                       \
        const ssize_t done = real(fd, from, count, at);                             \
        if (done > 0 && isFile(fd)) {                                               \
            note("write",                                                           \
                 inodeOf(fd),                                                       \
                 at,                                                                \
                 {static_cast<const char*>(from), static_cast<std::size_t>(done)}); \
        }                                                                           \
        return done;                                                                \
    }

NOTED_OPEN(open)
NOTED_OPEN(open64)
NOTED_OPENAT(openat)
NOTED_OPENAT(openat64)
NOTED_PWRITE(pwrite)
NOTED_PWRITE(pwrite64)

extern "C" ssize_t write(int fd, const void* from, size_t count) {
    static const auto real = next<decltype(&::write)>("write");
    if (!isFile(fd)) {
        return real(fd, from, count);
    }
    const std::scoped_lock lock(order());
    const ssize_t done = real(fd, from, count);
    if (done > 0) {
        note("write",
             inodeOf(fd),
             ::lseek(fd, 0, SEEK_CUR) - done,
             {static_cast<const char*>(from), static_cast<std::size_t>(done)});
    }
    return done;
}

NOTED(ftruncate, (int fd, off_t size), (fd, size), note("truncate", inodeOf(fd), size, {}))
NOTED(ftruncate64, (int fd, off_t size), (fd, size), note("truncate", inodeOf(fd), size, {}))
NOTED(fsync, (int fd), (fd), note("sync", inodeOf(fd), 0, fullPath(fd, "")))
NOTED(fdatasync, (int fd), (fd), note("sync", inodeOf(fd), 0, fullPath(fd, "")))
NOTED(syncfs, (int fd), (fd), note("syncfs", 0, 0, {}))
NOTED(mkdir,
      (const char* path, mode_t mode),
      (path, mode),
      note("mkdir", 0, 0, fullPath(AT_FDCWD, path)))
NOTED(mkdirat,
      (int fd, const char* path, mode_t mode),
      (fd, path, mode),
      note("mkdir", 0, 0, fullPath(fd, path)))
NOTED(rmdir, (const char* path), (path), note("remove", 0, 0, fullPath(AT_FDCWD, path)))
NOTED(unlink, (const char* path), (path), note("remove", 0, 0, fullPath(AT_FDCWD, path)))
NOTED(unlinkat,
      (int fd, const char* path, int flags),
      (fd, path, flags),
      note("remove", 0, 0, fullPath(fd, path)))
NOTED(rename,
      (const char* from, const char* to),
      (from, to),
      note("rename", 0, 0, two(fullPath(AT_FDCWD, from), fullPath(AT_FDCWD, to))))
NOTED(renameat,
      (int fd, const char* from, int other, const char* to),
      (fd, from, other, to),
      note("rename", 0, 0, two(fullPath(fd, from), fullPath(other, to))))
NOTED(renameat2,
      (int fd, const char* from, int other, const char* to, unsigned flags),
      (fd, from, other, to, flags),
      note("rename", 0, 0, two(fullPath(fd, from), fullPath(other, to))))

extern "C" int linkat(int fd, const char* from, int other, const char* to, int flags) {
    static const auto real = next<decltype(&::linkat)>("linkat");
    const std::scoped_lock lock(order());
    const int done = real(fd, from, other, to, flags);
    struct stat status {};
    if (done == 0 && ::fstatat(other, to, &status, AT_SYMLINK_NOFOLLOW) == 0) {
        note("link", status.st_ino, 0, fullPath(other, to));
    }
    return done;
}

extern "C" long syscall(long number, ...) {
    static const auto real = next<long (*)(long, ...)>("syscall");
    if (number == SYS_openat2) {
        errno = ENOSYS;
        return -1;
    }
    va_list rest;
    va_start(rest, number);
    long a[6];
    for (long& argument : a) {
        argument = va_arg(rest, long);
    }
    va_end(rest);
    return real(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}
