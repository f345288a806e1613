#include "cli/PasswordSource.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

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

// EMSGSIZE if the line is too long; ECANCELED and EAGAIN for kControlC and kControlZ if these
// letters mean something. What was read is wiped.
tl::expected<PasswordPointer, int> firstLineOf(int descriptor, bool isTyped) {
    std::string line;
    // Growing would leave pieces of it behind.
    line.reserve(kLongest + 2);
    const auto without = [&line](int error) {
        static_cast<void>(archive::Password(std::move(line)));
        return tl::unexpected(error);
    };
    for (char byte = 0;;) {
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
        if (isTyped && (byte == kControlC || byte == kControlZ)) {
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
        line = firstLineOf(opened.descriptor(), false);
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
    const std::string& archive) {
    if (::isatty(STDERR_FILENO) == 0) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    const archive::File terminal(::isatty(STDIN_FILENO) != 0
                                     ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                     : ::open("/dev/tty", O_RDONLY | O_CLOEXEC));
    if (!terminal.isOpen()) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    for (;;) {
        tl::expected<PasswordPointer, int> line;
        {
            const SilentTyping silent(terminal.descriptor());
            say(STDERR_FILENO, printable("Password of " + archive + ": "));
            line = firstLineOf(terminal.descriptor(), true);
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
