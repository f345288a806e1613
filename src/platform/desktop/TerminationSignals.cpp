#include "platform/desktop/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace pellumar {
namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What the handler wakes the event loop with; it may do no more than write.
std::atomic<int> eventNumber = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void wakeEventLoop(int /*signal*/) {
    const int before = errno;
    const std::uint64_t one = 1;
    static_cast<void>(!::write(eventNumber, &one, sizeof one));
    errno = before;
}

}  // namespace

TerminationSignals::TerminationSignals() {
    eventNumber = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (eventNumber < 0) {
        // They end the process as they always do.
        return;
    }
    notifier_.emplace(eventNumber, QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, [this] {
        notifier_->setEnabled(false);
        QCoreApplication::exit();
    });
    for (const int number : kSignals) {
        struct sigaction action = {};
        action.sa_handler = wakeEventLoop;
        action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        struct sigaction before = {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler != SIG_IGN) {
            ::sigaction(number, &action, nullptr);
        }
    }
}

TerminationSignals::~TerminationSignals() {
    for (const int number : kSignals) {
        struct sigaction before = {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler == wakeEventLoop) {
            static_cast<void>(std::signal(number, SIG_DFL));
        }
    }
    notifier_.reset();
    if (eventNumber >= 0) {
        ::close(eventNumber.exchange(-1));
    }
}

}  // namespace pellumar
