#include "cli/Messages.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

#include "cli/Arguments.h"
#include "cli/PrintableText.h"

namespace pellumar {
namespace {

constexpr std::string_view kEraseStatus = "\r\033[K";
// Names may have letters of two columns, so only the terminal knows where the line is full.
constexpr std::string_view kNoWrap = "\033[?7l";
constexpr std::string_view kWrap = "\033[?7h";
constexpr std::string_view kProgram = "pellumar: ";
constexpr std::size_t kUsualWidth = 80;

}  // namespace

Messages::Messages(bool quiet)
    : quiet_(quiet), hasStatus_(!quiet && ::isatty(STDERR_FILENO) != 0) {}

Messages::~Messages() {
    clearStatus();
}

int Messages::fail(std::string_view reason) {
    say(kProgram, reason);
    return kExitFailure;
}

void Messages::warn(std::string_view text) {
    if (!quiet_) {
        say("pellumar: warning: ", text);
    }
}

void Messages::warn(std::string_view archive, const archive::Warnings& warnings) {
    if (quiet_) {
        return;
    }
    const std::string start = std::string(archive) + ": warning: ";
    for (const archive::Warning& warning : warnings.kept()) {
        say(kProgram, start + warning.describe());
    }
    const std::uint64_t others = warnings.count() - warnings.kept().size();
    if (others > 0) {
        say(kProgram, start + std::to_string(others) + " more");
    }
}

void Messages::remark(std::string_view text) {
    if (hasStatus_) {
        say("", text);
    }
}

std::size_t Messages::width() {
    winsize size{};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                             : kUsualWidth;
}

void Messages::showStatus(std::string_view text) {
    const std::lock_guard lock(mutex_);
    isStatusShown_ = true;
    write(std::string(kEraseStatus).append(kNoWrap).append(printable(text)).append(kWrap));
}

void Messages::clearStatus() {
    const std::lock_guard lock(mutex_);
    if (isStatusShown_) {
        write(std::string(kEraseStatus));
    }
    isStatusShown_ = false;
}

void Messages::say(std::string_view start, std::string_view text) {
    const std::lock_guard lock(mutex_);
    std::string line;
    if (isStatusShown_) {
        line += kEraseStatus;
    }
    isStatusShown_ = false;
    line.append(start).append(printable(text)).push_back('\n');
    write(line);
}

// In one piece, so that lines of several programs stay whole.
void Messages::write(const std::string& bytes) {
    static_cast<void>(std::fwrite(bytes.data(), 1, bytes.size(), stderr));
    static_cast<void>(std::fflush(stderr));
}

}  // namespace pellumar
