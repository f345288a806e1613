#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QUrl>
#include <QVariantList>
#include <QVariantMap>
#include <functional>
#include <utility>

namespace pellumar {

// One question of the desktop portal to the user: org.freedesktop.portal.Request.
// Lives until it is answered. For the main thread.
class PortalRequest : public QObject {
    Q_OBJECT

  public:
    enum class Outcome {
        kDone,
        // By the user, or by the portal that ended meanwhile.
        kCancelled,
        // There is no portal, or it does not know the method.
        kUnavailable,
    };
    using Handler = std::function<void(Outcome outcome)>;

    // Calls `interface`.`method` with the arguments and, as the last of them, the options. Returns
    // at once; the handler is called exactly once, from the event loop.
    static void send(const QString& interface,
                     const QString& method,
                     QVariantList arguments,
                     QVariantMap options,
                     Handler handler);

    // The file for the portal, with an access mode as of open(2); an invalid one, which makes the
    // call fail as unavailable, if it cannot be opened like that.
    [[nodiscard]] static QDBusUnixFileDescriptor openFile(const QUrl& url, int access);

  private slots:
    void responded(uint response, const QVariantMap& results);

  private:
    explicit PortalRequest(Handler handler) : handler_(std::move(handler)) {}

    void listen(const QString& path);
    void call(const QString& interface, const QString& method, const QVariantList& arguments);
    void finish(Outcome outcome);

    Handler handler_;
};

}  // namespace pellumar
