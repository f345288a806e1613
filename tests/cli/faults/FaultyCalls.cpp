#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

// To be loaded before a program (LD_PRELOAD): lets one of its calls to the system fail, or ends it
// there. Counted are the calls that may fail in that way, from the first on that names a path below
// FAULTY_ROOT. The environment says which:
//
//     FAULTY_AT     its number, from 1 on
//     FAULTY_WITH   errno, "short" (half of what was to be read or written), or "kill"
//     FAULTY_MARK   a file to be made when it has happened, with the call's name in it
//     FAULTY_DISK   the type of file system to pretend, one with 800 KiB left
//     FAULTY_LACKS  calls that this system does not have: "openat2", "tmpfile", "renameat2"

namespace {

// What a call can suffer; most calls can suffer several.
enum Kind : unsigned {
    kAny = 0,
    kOpens = 1,      // takes a descriptor: EMFILE
    kTakesRoom = 2,  // ENOSPC, EDQUOT
    kWaits = 4,      // EINTR
    kMoves = 8,      // short
    kStartsThread = 16,
};

const char* setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

const std::string_view kWith = setting("FAULTY_WITH");
const int kError = std::atoi(setting("FAULTY_WITH"));
const int kAt = std::atoi(setting("FAULTY_AT"));

bool lacks(const char* name) {
    return std::string_view(setting("FAULTY_LACKS")).find(name) != std::string_view::npos;
}

std::atomic<bool> started = false;
std::atomic<int> counted = 0;

void startAt(const char* path) {
    const std::string_view root = setting("FAULTY_ROOT");
    if (path != nullptr && !root.empty() && std::string_view(path).starts_with(root)) {
        started = true;
    }
}

bool suffers(unsigned kind) {
    if (kWith == "kill") {
        return true;
    }
    if (kWith == "short") {
        return (kind & kMoves) != 0;
    }
    switch (kError) {
        case EMFILE:
            return (kind & kOpens) != 0;
        case ENOSPC:
        case EDQUOT:
            return (kind & kTakesRoom) != 0;
        case EINTR:
            return (kind & kWaits) != 0;
        case EAGAIN:
            return (kind & kStartsThread) != 0;
        default:
            return (kind & kStartsThread) == 0;
    }
}

// Opened at once: a thread that is confined can open no file elsewhere.
const auto kMark = static_cast<int>(
    ::syscall(SYS_openat, AT_FDCWD, setting("FAULTY_MARK"), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));

void mark(const char* call) {
    static_cast<void>(!::syscall(SYS_write, kMark, call, std::strlen(call)));
}

// The words that threads have for each other are not the job's.
bool isFile(int descriptor) {
    struct stat status {};
    return ::syscall(SYS_fstat, descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// Whether this call is the one.
bool isFaulty(const char* call, unsigned kind) {
    if (!started || !suffers(kind) || ++counted != kAt) {
        return false;
    }
    mark(call);
    if (kWith == "kill") {
        ::raise(SIGKILL);
    }
    errno = kError;
    return true;
}

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

unsigned kindOfOpen(int flags) {
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return kOpens | kWaits | (makes ? kTakesRoom : kAny);
}

bool isRefused(int flags) {
    if ((flags & O_TMPFILE) == O_TMPFILE && lacks("tmpfile")) {
        errno = EOPNOTSUPP;
        return true;
    }
    return false;
}

}  // namespace

// Of these calls all that matters is that they fail.
#define FAULTY(result, name, kind, parameters, arguments, path)                  \
    extern "C" result name parameters {                                          \
        static const auto real = next<decltype(&::name)>(#name);                 \
        startAt(path);                                                           \
        return isFaulty(#name, kind) ? static_cast<result>(-1) : real arguments; \
    }

// The same where a part can be done.
#define FAULTY_MOVE(name, kind, parameters, arguments, shorter)          \
    extern "C" ssize_t name parameters {                                 \
        static const auto real = next<decltype(&::name)>(#name);         \
        if (!isFile(fd) || !isFaulty(#name, (kind) | kMoves | kWaits)) { \
            return real arguments;                                       \
        }                                                                \
        return kWith == "short" && count > 1 ? real shorter              \
               : kWith == "short"            ? real arguments            \
                                             : -1;                                  \
    }

FAULTY_MOVE(read, kAny, (int fd, void* to, size_t count), (fd, to, count), (fd, to, count / 2))
FAULTY_MOVE(write,
            kTakesRoom,
            (int fd, const void* from, size_t count),
            (fd, from, count),
            (fd, from, count / 2))
FAULTY_MOVE(pread,
            kAny,
            (int fd, void* to, size_t count, off_t at),
            (fd, to, count, at),
            (fd, to, count / 2, at))
FAULTY_MOVE(pwrite,
            kTakesRoom,
            (int fd, const void* from, size_t count, off_t at),
            (fd, from, count, at),
            (fd, from, count / 2, at))

FAULTY(int, access, kAny, (const char* path, int mode), (path, mode), path)
FAULTY(int, stat, kAny, (const char* path, struct stat* to), (path, to), path)
FAULTY(int, lstat, kAny, (const char* path, struct stat* to), (path, to), path)
FAULTY(int, fstat, kAny, (int fd, struct stat* to), (fd, to), nullptr)
FAULTY(int,
       fstatat,
       kAny,
       (int fd, const char* path, struct stat* to, int flags),
       (fd, path, to, flags),
       path)
FAULTY(long, fpathconf, kAny, (int fd, int name), (fd, name), nullptr)
FAULTY(int, fsync, kTakesRoom | kWaits, (int fd), (fd), nullptr)
FAULTY(int, ftruncate, kTakesRoom | kWaits, (int fd, off_t size), (fd, size), nullptr)
FAULTY(int, fchmod, kAny, (int fd, mode_t mode), (fd, mode), nullptr)
FAULTY(int,
       fchmodat,
       kAny,
       (int fd, const char* path, mode_t mode, int flags),
       (fd, path, mode, flags),
       path)
FAULTY(int, futimens, kAny, (int fd, const timespec* times), (fd, times), nullptr)
FAULTY(int,
       utimensat,
       kAny,
       (int fd, const char* path, const timespec* times, int flags),
       (fd, path, times, flags),
       path)
FAULTY(int, mkdir, kTakesRoom, (const char* path, mode_t mode), (path, mode), path)
FAULTY(int, mkdirat, kTakesRoom, (int fd, const char* path, mode_t mode), (fd, path, mode), path)
FAULTY(int, rmdir, kAny, (const char* path), (path), path)
FAULTY(int, unlink, kAny, (const char* path), (path), path)
FAULTY(int, unlinkat, kAny, (int fd, const char* path, int flags), (fd, path, flags), path)
FAULTY(int, rename, kTakesRoom, (const char* from, const char* to), (from, to), to)
FAULTY(int,
       renameat,
       kTakesRoom,
       (int fd, const char* from, int other, const char* to),
       (fd, from, other, to),
       to)
FAULTY(int,
       linkat,
       kTakesRoom,
       (int fd, const char* from, int other, const char* to, int flags),
       (fd, from, other, to, flags),
       to)
FAULTY(int,
       symlinkat,
       kTakesRoom,
       (const char* target, int fd, const char* path),
       (target, fd, path),
       path)

extern "C" int fstatfs(int fd, struct statfs* to) {
    static const auto real = next<int (*)(int, struct statfs*)>("fstatfs");
    const int told = isFaulty("fstatfs", kAny) ? -1 : real(fd, to);
    if (const long type = std::strtol(setting("FAULTY_DISK"), nullptr, 0); type != 0) {
        constexpr std::uint64_t kFree = 800UL * 1024;
        to->f_type = type;
        to->f_bavail = kFree / static_cast<std::uint64_t>(to->f_bsize);
    }
    return told;
}

extern "C" int renameat2(int fd, const char* from, int other, const char* to, unsigned flags) {
    static const auto real =
        next<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
    if (flags != 0 && lacks("renameat2")) {
        errno = EINVAL;
        return -1;
    }
    return isFaulty("renameat2", kTakesRoom) ? -1 : real(fd, from, other, to, flags);
}

extern "C" int open(const char* path, int flags, ...) {
    static const auto real = next<int (*)(const char*, int, ...)>("open");
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    startAt(path);
    return isRefused(flags) || isFaulty("open", kindOfOpen(flags)) ? -1 : real(path, flags, mode);
}

extern "C" int openat(int fd, const char* path, int flags, ...) {
    static const auto real = next<int (*)(int, const char*, int, ...)>("openat");
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return isRefused(flags) || isFaulty("openat", kindOfOpen(flags)) ? -1
                                                                     : real(fd, path, flags, mode);
}

// The descriptor is gone whatever close says.
extern "C" int close(int fd) {
    static const auto real = next<int (*)(int)>("close");
    const bool faulty = isFaulty("close", kTakesRoom | kWaits);
    const int closed = real(fd);
    if (faulty) {
        errno = kError;
    }
    return faulty ? -1 : closed;
}

extern "C" DIR* opendir(const char* path) {
    static const auto real = next<DIR* (*)(const char*)>("opendir");
    startAt(path);
    return isFaulty("opendir", kOpens) ? nullptr : real(path);
}

extern "C" DIR* fdopendir(int fd) {
    static const auto real = next<DIR* (*)(int)>("fdopendir");
    return isFaulty("fdopendir", kAny) ? nullptr : real(fd);
}

extern "C" dirent* readdir(DIR* stream) {
    static const auto real = next<dirent* (*)(DIR*)>("readdir");
    return isFaulty("readdir", kAny) ? nullptr : real(stream);
}

extern "C" int pthread_create(pthread_t* thread,
                              const pthread_attr_t* attributes,
                              void* (*run)(void*),
                              void* argument) {
    static const auto real =
        next<int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*)>("pthread_create");
    // The first thread starts those that watch for signals and run the job. Where there is not even
    // that one, the job waits.
    const bool isOfJob = ::gettid() != ::getpid() || kWith == "kill";
    return isOfJob && isFaulty("pthread_create", kStartsThread)
               ? kError
               : real(thread, attributes, run, argument);
}

extern "C" long syscall(long number, ...) {
    static const auto real = next<long (*)(long, ...)>("syscall");
    va_list rest;
    va_start(rest, number);
    long a[6];
    for (long& argument : a) {
        argument = va_arg(rest, long);
    }
    va_end(rest);
    if (number == SYS_openat2) {
        if (lacks("openat2")) {
            errno = ENOSYS;
            return -1;
        }
        if (isFaulty("openat2", kOpens | kWaits)) {
            return -1;
        }
    }
    return real(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}
