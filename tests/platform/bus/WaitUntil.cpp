#include "platform/bus/WaitUntil.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace pellumar::test {

bool waitUntil(const std::function<bool()>& isDone, std::chrono::milliseconds deadline) {
    const QDeadlineTimer end(deadline);
    QTimer look;
    look.start(std::chrono::milliseconds(5));
    while (!isDone()) {
        if (end.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

}  // namespace pellumar::test
