#include "platform/Console.h"

#include <QByteArray>

namespace pellumar {

void StreamConsole::writeLine(const QString& line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    const auto now = std::chrono::steady_clock::now();
    const std::lock_guard lock(mutex_);
    // One call, because others write to the stream too, and its lock is held for one call.
    static_cast<void>(
        std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream_));
    if (now - flushed_ >= patience_) {
        static_cast<void>(std::fflush(stream_));
        flushed_ = now;
    }
}

}  // namespace pellumar
