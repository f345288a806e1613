#include "platform/Console.h"

#include <QByteArray>

namespace pellumar {

void StreamConsole::writeLine(const QString& line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    // One call, because the stream's lock is held for one call.
    static_cast<void>(
        std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream_));
    static_cast<void>(std::fflush(stream_));
}

}  // namespace pellumar
