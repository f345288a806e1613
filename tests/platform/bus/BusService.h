#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QString>
#include <QVariantList>
#include <functional>
#include <optional>

namespace pellumar::test {

// A service on the session bus, on a connection of its own, that answers any call as it is told and
// remembers it. Gone from the bus when the object goes. It answers from the event loop.
class BusService : public QDBusVirtualObject {
  public:
    struct Call {
        QString path;
        // "interface.member"
        QString method;
        QVariantList arguments;
        QString sender;
    };
    // What to answer; nothing is an error, as of a method that does not exist.
    using Answer = std::function<std::optional<QVariantList>(const Call& call)>;

    BusService(const QString& name, Answer answer);
    ~BusService() override;
    BusService(const BusService&) = delete;
    BusService& operator=(const BusService&) = delete;

    [[nodiscard]] const QList<Call>& calls() const { return calls_; }
    void emitSignal(const QString& path,
                    const QString& interface,
                    const QString& name,
                    const QVariantList& arguments);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

  private:
    const QString connectionName_;
    QDBusConnection connection_;
    const Answer answer_;
    QList<Call> calls_;
};

}  // namespace pellumar::test
