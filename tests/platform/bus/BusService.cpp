#include "platform/bus/BusService.h"

#include <QUuid>
#include <utility>

namespace pellumar::test {

BusService::BusService(const QString& name, Answer answer)
    : connectionName_(QUuid::createUuid().toString()),
      connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName_)),
      answer_(std::move(answer)) {
    connection_.registerVirtualObject("/", this, QDBusConnection::SubPath);
    if (!connection_.registerService(name)) {
        qFatal("The name %s is taken", qUtf8Printable(name));
    }
}

BusService::~BusService() {
    connection_.unregisterObject("/", QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(connectionName_);
}

void BusService::emitSignal(const QString& path,
                            const QString& interface,
                            const QString& name,
                            const QVariantList& arguments) {
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
    signal.setArguments(arguments);
    connection_.send(signal);
}

bool BusService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const Call call{message.path(),
                    message.interface() + '.' + message.member(),
                    message.arguments(),
                    message.service()};
    calls_.append(call);
    const std::optional<QVariantList> answer = answer_(call);
    if (answer) {
        connection.send(message.createReply(*answer));
    } else {
        connection.send(message.createErrorReply(QDBusError::UnknownMethod, "not here"));
    }
    return true;
}

}  // namespace pellumar::test
