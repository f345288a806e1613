#include "platform/sharing/SessionBusNames.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QStringList>

namespace pellumar {

bool isOnSessionBus(const QString& name) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    const QStringList running = bus.interface()->registeredServiceNames();
    const QStringList startable = bus.interface()->activatableServiceNames();
    return running.contains(name) || startable.contains(name);
}

}  // namespace pellumar
