#include "cli/PasswordSource.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "archive/base/File.h"
#include "cli/PrintableText.h"

namespace pellumar {
namespace {

using PasswordPointer = std::shared_ptr<const archive::Password>;

// No password is longer; a file that has no line end would be read whole.
constexpr std::size_t kLongest = 4096;

// ECANCELED if the byte `cancel` comes; EMSGSIZE if the line is too long. What was read is wiped.
tl::expected<PasswordPointer, int> firstLineOf(int descriptor, std::optional<char> cancel = {}) {
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
        if (byte == cancel) {
            return without(ECANCELED);
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

constexpr char kControlC = '\x03';

// Types without an echo as long as it lives. Control-C comes as a letter meanwhile: a signal would
// end the program with the terminal still silent.
class SilentTyping {
  public:
    explicit SilentTyping(int terminal) : terminal_(terminal) {
        changed_ = ::tcgetattr(terminal, &before_) == 0;
        if (changed_) {
            termios silent = before_;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
            // A letter that ends a line, or it would only come with the next line end.
            silent.c_cc[VEOL] = kControlC;
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

tl::expected<std::shared_ptr<const archive::Password>, std::string> passwordIn(
    const std::filesystem::path& file) {
    const archive::File opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    tl::expected<PasswordPointer, int> line = tl::unexpected(errno);
    if (opened.isOpen()) {
        line = firstLineOf(opened.descriptor());
    }
    if (!line) {
        return tl::unexpected(file.native() + ": " +
                              (line.error() == EMSGSIZE
                                   ? "its first line is longer than 4,096 bytes, as no password is"
                                   : std::generic_category().message(line.error())));
    }
    return *std::move(line);
}

tl::expected<std::shared_ptr<const archive::Password>, NoAnswer> askOnTerminal(
    const std::string& question) {
    if (::isatty(STDERR_FILENO) == 0) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    const archive::File terminal(::isatty(STDIN_FILENO) != 0
                                     ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                     : ::open("/dev/tty", O_RDONLY | O_CLOEXEC));
    if (!terminal.isOpen()) {
        return tl::unexpected(NoAnswer::kNoTerminal);
    }
    tl::expected<PasswordPointer, int> line;
    {
        const SilentTyping silent(terminal.descriptor());
        say(STDERR_FILENO, printable(question));
        line = firstLineOf(terminal.descriptor(), kControlC);
    }
    say(STDERR_FILENO, "\n");
    if (!line) {
        return tl::unexpected(line.error() == ECANCELED ? NoAnswer::kInterrupted
                                                        : NoAnswer::kNothing);
    }
    if ((*line)->text().empty()) {
        return tl::unexpected(NoAnswer::kNothing);
    }
    return *std::move(line);
}

}  // namespace pellumar
