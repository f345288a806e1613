#include "platform/desktop/PortalSleepInhibitor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace pellumar {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
// org.freedesktop.portal.Inhibit: 4 is suspend, 8 is idle.
constexpr uint kSuspendAndIdle = 4 | 8;

void closeRequest(const QString& path) {
    QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
        kService, path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")));
}

// The answer to the wish, which may come after the work is done.
struct Wish {
    QString request;
    ~Wish() {
        if (!request.isEmpty()) {
            closeRequest(request);
        }
    }
    Wish() = default;
    Wish(const Wish&) = delete;
    Wish& operator=(const Wish&) = delete;
};

}  // namespace

std::shared_ptr<void> PortalSleepInhibitor::keepAwake(const QString& reason) {
    auto wish = std::make_shared<Wish>();
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService,
                                       QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.Inhibit"),
                                       QStringLiteral("Inhibit"));
    call << QString() << kSuspendAndIdle << QVariantMap{{QStringLiteral("reason"), reason}};
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call));
    QObject::connect(answer,
                     &QDBusPendingCallWatcher::finished,
                     answer,
                     [answer, weak = std::weak_ptr<Wish>(wish)] {
                         answer->deleteLater();
                         const QDBusPendingReply<QDBusObjectPath> reply = *answer;
                         if (reply.isError()) {
                             return;
                         }
                         if (const auto still = weak.lock()) {
                             still->request = reply.value().path();
                         } else {
                             closeRequest(reply.value().path());
                         }
                     });
    return wish;
}

}  // namespace pellumar
