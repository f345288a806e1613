#include "platform/crashes/CrashMarker.h"

#include <fcntl.h>
#include <signal.h>
#include <time.h>
#include <unistd.h>
#include <unwind.h>

#include <QtGlobal>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pellumar {
namespace {

struct FatalSignal {
    int number;
    std::string_view name;
};
constexpr std::array<FatalSignal, 7> kSignals = {{
    {SIGSEGV, "SIGSEGV"},
    {SIGABRT, "SIGABRT"},
    {SIGBUS, "SIGBUS"},
    {SIGFPE, "SIGFPE"},
    {SIGILL, "SIGILL"},
    {SIGTRAP, "SIGTRAP"},
    {SIGSYS, "SIGSYS"},
}};
constexpr std::size_t kMostFrames = 48;

// Handlers have no argument of ours, so what they need stands here for as long as the process.
struct Handling {
    std::atomic<bool> exists = false;
    std::atomic<bool> armed = false;
    std::atomic_flag taken = ATOMIC_FLAG_INIT;
    std::array<char, 4096> path{};
    std::array<char, 64> version{};
    std::array<struct sigaction, kSignals.size()> before{};
    std::array<std::byte, 64 << 10> stack{};
    stack_t stackBefore{};
};
Handling handling;
static_assert(std::atomic<bool>::is_always_lock_free);

struct Frames {
    std::array<std::uintptr_t, kMostFrames> addresses{};
    std::size_t count = 0;
};

_Unwind_Reason_Code noteFrame(_Unwind_Context* context, void* to) {
    Frames& frames = *static_cast<Frames*>(to);
    int isInterrupted = 0;
    const std::uintptr_t address = _Unwind_GetIPInfo(context, &isInterrupted);
    if (isInterrupted != 0) {
        // The handler's own stand above the place of the crash.
        frames.count = 0;
    }
    if (frames.count < frames.addresses.size()) {
        frames.addresses[frames.count++] = address;
    }
    return _URC_NO_REASON;
}

void write(int file, std::string_view text) {
    // A disk without room costs the marker, nothing else.
    [[maybe_unused]] const ssize_t written = ::write(file, text.data(), text.size());
}

void writeNumber(int file, std::string_view word, std::uintptr_t number, unsigned base) {
    std::array<char, 24> digits{};
    std::size_t at = digits.size();
    digits[--at] = '\n';
    do {
        digits[--at] = "0123456789abcdef"[number % base];
        number /= base;
    } while (number != 0);
    write(file, word);
    write(file, {digits.data() + at, digits.size() - at});
}

void writeMarker(std::string_view signalName) {
    const int file = ::open(handling.path.data(),
                            O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW,
                            S_IRUSR | S_IWUSR);
    if (file < 0) {
        return;
    }
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    write(file, "signal ");
    write(file, signalName);
    writeNumber(file, "\ntime ", static_cast<std::uintptr_t>(now.tv_sec), 10);
    writeNumber(file, "process ", static_cast<std::uintptr_t>(::getpid()), 10);
    write(file, "version ");
    write(file, handling.version.data());
    write(file, "\n");
    Frames frames;
    _Unwind_Backtrace(noteFrame, &frames);
    for (std::size_t i = 0; i < frames.count; ++i) {
        writeNumber(file, "at ", frames.addresses[i], 16);
    }
    const int maps = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    std::array<char, 4096> chunk{};
    ssize_t size = 0;
    while (maps >= 0 && (size = ::read(maps, chunk.data(), chunk.size())) > 0) {
        write(file, {chunk.data(), static_cast<std::size_t>(size)});
    }
    ::close(maps);
    ::close(file);
}

void handle(int signal, siginfo_t* info, void* /*context*/) {
    std::size_t index = 0;
    while (index + 1 < kSignals.size() && kSignals[index].number != signal) {
        ++index;
    }
    if (handling.armed.load() && !handling.taken.test_and_set()) {
        writeMarker(kSignals[index].name);
    }
    ::sigaction(signal, &handling.before[index], nullptr);
    // A fault comes again by itself, from the same place. Everything else has to be sent again, and
    // comes when the handler returns.
    const bool isFault =
        signal == SIGSEGV || signal == SIGBUS || signal == SIGFPE || signal == SIGILL;
    if (!isFault || info->si_code <= 0) {
        ::raise(signal);
    }
}

template <std::size_t Size>
void copyText(const std::string& text, std::array<char, Size>& to) {
    to.fill('\0');
    std::copy_n(text.begin(), std::min(text.size(), Size - 1), to.begin());
}

}  // namespace

CrashMarker::CrashMarker(const std::filesystem::path& marker, const std::string& version) {
    if (handling.exists.exchange(true)) {
        qFatal("There is a crash marker already");
    }
    copyText(marker.string(), handling.path);
    copyText(version, handling.version);
    // The first use may load a library.
    Frames unused;
    _Unwind_Backtrace(noteFrame, &unused);
    stack_t stack{};
    stack.ss_sp = handling.stack.data();
    stack.ss_size = handling.stack.size();
    ::sigaltstack(&stack, &handling.stackBefore);
    struct sigaction action {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i].number, &action, &handling.before[i]);
    }
}

CrashMarker::~CrashMarker() {
    handling.armed = false;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction current {};
        ::sigaction(kSignals[i].number, nullptr, &current);
        if (current.sa_sigaction == handle) {
            ::sigaction(kSignals[i].number, &handling.before[i], nullptr);
        }
    }
    stack_t current{};
    if (::sigaltstack(nullptr, &current) == 0 && current.ss_sp == handling.stack.data()) {
        ::sigaltstack(&handling.stackBefore, nullptr);
    }
    handling.exists = false;
}

void CrashMarker::arm(bool armed) {
    handling.armed = armed;
}

}  // namespace pellumar
