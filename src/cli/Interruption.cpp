#include "cli/Interruption.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cstdint>

#include "cli/Arguments.h"

namespace pellumar {

Interruption::Interruption() : wake_(::eventfd(0, EFD_CLOEXEC)) {
    ::sigemptyset(&signals_);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
            ::sigaddset(&signals_, number);
        }
    }
    arrivals_ = archive::File(::signalfd(-1, &signals_, SFD_CLOEXEC));
    if (wake_.isOpen() && arrivals_.isOpen() &&
        ::pthread_sigmask(SIG_BLOCK, &signals_, &maskBefore_) == 0) {
        watcher_ = std::thread([this] { watch(); });
    }
}

Interruption::~Interruption() {
    if (watcher_.joinable()) {
        ::eventfd_write(wake_.descriptor(), 1);
        watcher_.join();
        ::pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
    }
}

void Interruption::interrupt(int signal) {
    int none = 0;
    signal_.compare_exchange_strong(none, signal);
    work_.request_stop();
}

int Interruption::exitCode() const {
    return kExitSignal + signal_;
}

void Interruption::watch() {
    std::array<pollfd, 2> waited{{{.fd = wake_.descriptor(), .events = POLLIN, .revents = 0},
                                  {.fd = arrivals_.descriptor(), .events = POLLIN, .revents = 0}}};
    while (waited[0].revents == 0) {
        if (::poll(waited.data(), waited.size(), -1) < 0 || waited[1].revents == 0) {
            continue;
        }
        signalfd_siginfo arrival{};
        if (::read(arrivals_.descriptor(), &arrival, sizeof arrival) == sizeof arrival) {
            interrupt(static_cast<int>(arrival.ssi_signo));
        }
        // The next one finds this thread, and does what it does to any program.
        ::pthread_sigmask(SIG_UNBLOCK, &signals_, nullptr);
        waited[1].fd = -1;
    }
}

}  // namespace pellumar
