#include "cli/PasswordSource.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>
#include <system_error>
#include <utility>

#include "archive/base/File.h"
#include "cli/Arguments.h"
#include "cli/PrintableText.h"

namespace pellumar {
namespace {

using PasswordPointer = std::shared_ptr<const archive::Password>;

// No password is longer; a file that has no line end would be read whole.
constexpr std::size_t kLongest = 4096;

// Typed, they come as letters.
constexpr char kControlC = '\x03';
constexpr char kControlZ = '\x1A';

// Somebody who types, and may be told to leave it.
struct Typing {
    // Readable once it is to be left.
    int wake;

    // False then.
    [[nodiscard]] bool waitFor(int terminal) const {
        std::array<pollfd, 2> waited{{{.fd = wake, .events = POLLIN, .revents = 0},
                                      {.fd = terminal, .events = POLLIN, .revents = 0}}};
        while (::poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) {
        }
        return waited[0].revents == 0;
    }
};

// EMSGSIZE if the line is too long; if it is typed, ECANCELED where that is left or for kControlC,
// and EAGAIN for kControlZ. What was read is wiped.
tl::expected<PasswordPointer, int> firstLineOf(int descriptor, const Typing* typing = nullptr) {
    std::string line;
    // Growing would leave pieces of it behind.
    line.reserve(kLongest + 2);
    const auto without = [&line](int error) {
        static_cast<void>(archive::Password(std::move(line)));
        return tl::unexpected(error);
    };
    for (char byte = 0;;) {
        if (typing != nullptr && !typing->waitFor(descriptor)) {
            return without(ECANCELED);
        }
        const ssize_t count = ::read(descriptor, &byte, 1);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return without(errno);
        }
        if (count == 0 || byte == '\n') {
            break;
        }
        if (typing != nullptr && (byte == kControlC || byte == kControlZ)) {
            return without(byte == kControlC ? ECANCELED : EAGAIN);
        }
        if (line.size() > kLongest) {
            return without(EMSGSIZE);
        }
        line.push_back(byte);
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    if (line.size() > kLongest) {
        return without(EMSGSIZE);
    }
    return std::make_shared<const archive::Password>(std::move(line));
}

// Types without an echo as long as it lives. Control-C and Control-Z come as letters meanwhile: a
// signal would end or stop the program with the terminal still silent.
class SilentTyping {
  public:
    explicit SilentTyping(int terminal) : terminal_(terminal) {
        changed_ = ::tcgetattr(terminal, &before_) == 0;
        if (changed_) {
            termios silent = before_;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
            // Letters that end a line, or they would only come with the next line end.
            silent.c_cc[VEOL] = kControlC;
            silent.c_cc[VEOL2] = kControlZ;
            ::tcsetattr(terminal, TCSAFLUSH, &silent);
        }
    }
    SilentTyping(const SilentTyping&) = delete;
    SilentTyping& operator=(const SilentTyping&) = delete;
    ~SilentTyping() {
        if (changed_) {
            ::tcsetattr(terminal_, TCSAFLUSH, &before_);
        }
    }

  private:
    int terminal_;
    termios before_{};
    bool changed_ = false;
};

void say(int terminal, std::string_view text) {
    static_cast<void>(!::write(terminal, text.data(), text.size()));
}

}  // namespace

std::string PasswordFile::name() const {
    return path_ == kStandardStream ? "standard input" : path_.native();
}

const PasswordFile::Password& PasswordFile::password() {
    if (password_) {
        return *password_;
    }
    const archive::File opened(path_ == kStandardStream
                                   ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                   : ::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    tl::expected<PasswordPointer, int> line = tl::unexpected(errno);
    if (opened.isOpen()) {
        line = firstLineOf(opened.descriptor());
    }
    if (line) {
        password_ = *std::move(line);
    } else {
        password_ =
            tl::unexpected(name() + ": " +
                           (line.error() == EMSGSIZE
                                ? "its first line is longer than 4,096 bytes, as no password is"
                                : std::generic_category().message(line.error())));
    }
    return *password_;
}

tl::expected<std::shared_ptr<const archive::Password>, NoAnswer> askOnTerminal(
    const std::string& archive,
    std::stop_token stop) {
    if (::isatty(STDERR_FILENO) == 0) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    const archive::File terminal(::isatty(STDIN_FILENO) != 0
                                     ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                     : ::open("/dev/tty", O_RDONLY | O_CLOEXEC));
    if (!terminal.isOpen()) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    const archive::File wake(::eventfd(0, EFD_CLOEXEC));
    const Typing typing{.wake = wake.descriptor()};
    const std::stop_callback leave(std::move(stop), [&typing] { ::eventfd_write(typing.wake, 1); });
    for (;;) {
        tl::expected<PasswordPointer, int> line;
        {
            const SilentTyping silent(terminal.descriptor());
            say(STDERR_FILENO, printable("Password of " + archive + ": "));
            line = firstLineOf(terminal.descriptor(), &typing);
        }
        say(STDERR_FILENO, "\n");
        if (line && !(*line)->text().empty()) {
            return *std::move(line);
        }
        if (line || line.error() != EAGAIN) {
            return tl::unexpected(!line && line.error() == ECANCELED ? NoAnswer::kInterrupted
                                                                     : NoAnswer::kNothing);
        }
        // All that were started together, as the terminal itself would have it.
        ::kill(0, SIGTSTP);
    }
}

}  // namespace pellumar
