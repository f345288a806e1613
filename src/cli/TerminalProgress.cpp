#include "cli/TerminalProgress.h"

#include <algorithm>
#include <string>

namespace pellumar {
namespace {

constexpr qint64 kWhole = 100;
// Small files are done faster than a terminal draws.
constexpr std::chrono::milliseconds kBetweenLines{50};
constexpr const char* kClearLine = "\r\033[K";

}  // namespace

TerminalProgress::TerminalProgress(std::FILE* terminal, qint64 total) : terminal_(terminal) {
    show(0, total);
}

TerminalProgress::~TerminalProgress() {
    static_cast<void>(std::fputs(kClearLine, terminal_));
    static_cast<void>(std::fflush(terminal_));
}

void TerminalProgress::zipManagerDidAddFile(qint64 done, qint64 total) {
    const std::lock_guard lock(mutex_);
    if (done == total || std::chrono::steady_clock::now() - shown_ >= kBetweenLines) {
        show(done, total);
    }
}

void TerminalProgress::show(qint64 done, qint64 total) {
    const qint64 percent = done * kWhole / std::max<qint64>(total, 1);
    const std::string line = kClearLine + std::to_string(done) + " of " + std::to_string(total) +
                             " files, " + std::to_string(percent) + " %";
    static_cast<void>(std::fputs(line.c_str(), terminal_));
    static_cast<void>(std::fflush(terminal_));
    shown_ = std::chrono::steady_clock::now();
}

}  // namespace pellumar
