#include "analytics/CrashMarker.h"

#include <signal.h>
#include <unistd.h>

#include <QtGlobal>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "analytics/CrashDump.h"

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

void handle(int signal, siginfo_t* info, void* context) {
    std::size_t index = 0;
    while (index + 1 < kSignals.size() && kSignals[index].number != signal) {
        ++index;
    }
    if (handling.armed.load() && !handling.taken.test_and_set()) {
        crash::dump(handling.path.data(), kSignals[index].name, handling.version.data(), context);
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
