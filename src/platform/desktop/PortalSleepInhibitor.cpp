#include "platform/desktop/PortalSleepInhibitor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QGuiApplication>
#include <QVariantMap>

namespace pellumar {
namespace {

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
// org.freedesktop.portal.Inhibit: 4 is suspend, 8 is idle.
constexpr uint kSuspendAndIdle = 4 | 8;

void closeRequest(const QString& path) {
    QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
        kPortal, path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
}

// What holds the machine awake, once somebody has answered; that may be after the work is done.
struct Wish {
    QString request;
    QDBusUnixFileDescriptor lock;
    ~Wish() {
        if (!request.isEmpty()) {
            closeRequest(request);
        }
    }
    Wish() = default;
    Wish(const Wish&) = delete;
    Wish& operator=(const Wish&) = delete;
};

// Its lock lasts as long as the descriptor that it answers with.
void askLoginManager(const std::weak_ptr<Wish>& wish, const QString& reason) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.login1"),
                                       QStringLiteral("/org/freedesktop/login1"),
                                       QStringLiteral("org.freedesktop.login1.Manager"),
                                       QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep:idle") << QGuiApplication::applicationDisplayName() << reason
         << QStringLiteral("block");
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, wish] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *answer;
        const auto still = wish.lock();
        if (still && !reply.isError()) {
            still->lock = reply.value();
        }
    });
}

void takeAnswer(const QDBusPendingReply<QDBusObjectPath>& reply,
                const std::weak_ptr<Wish>& wish,
                const QString& reason) {
    const auto still = wish.lock();
    if (still && reply.isError()) {
        askLoginManager(wish, reason);
    } else if (still) {
        still->request = reply.value().path();
    } else if (!reply.isError()) {
        closeRequest(reply.value().path());
    }
}

}  // namespace

std::shared_ptr<void> PortalSleepInhibitor::keepAwake(const QString& reason) {
    auto wish = std::make_shared<Wish>();
    QDBusMessage call =
        QDBusMessage::createMethodCall(kPortal,
                                       QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.Inhibit"),
                                       QStringLiteral("Inhibit"));
    call << QString() << kSuspendAndIdle << QVariantMap{{QStringLiteral("reason"), reason}};
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(answer,
                     &QDBusPendingCallWatcher::finished,
                     answer,
                     [answer, weak = std::weak_ptr<Wish>(wish), reason] {
                         answer->deleteLater();
                         takeAnswer(*answer, weak, reason);
                     });
    return wish;
}

}  // namespace pellumar
