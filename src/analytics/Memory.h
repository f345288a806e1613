#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include "analytics/Event.h"

namespace pellumar {

// Why something was lost, as it leaves the machine.
namespace loss {
// The application was faster than the disk.
inline const QString kQueueFull = QStringLiteral("queue_full");
// An event, a parameter or a property that broke a limit.
inline const QString kInvalid = QStringLiteral("invalid");
// Left out by sampling.
inline const QString kSampledOut = QStringLiteral("sampled_out");
// The oldest, for want of room.
inline const QString kNoRoom = QStringLiteral("no_room");
// Too old.
inline const QString kExpired = QStringLiteral("expired");
}  // namespace loss

// What is known from one process to the next beside the events and their counts. Its properties are
// what is kept of it. Times are milliseconds, moments since 1970 in UTC.
struct Memory {
    Q_GADGET
    Q_PROPERTY(QString installation MEMBER installation)
    Q_PROPERTY(qint64 installed_at MEMBER installedAt)
    Q_PROPERTY(qint64 session_number MEMBER sessionNumber)
    Q_PROPERTY(QString session MEMBER session)
    Q_PROPERTY(qint64 last_seen MEMBER lastSeen)
    Q_PROPERTY(qint64 engagement MEMBER engagement)
    Q_PROPERTY(QString app_version MEMBER applicationVersion)
    Q_PROPERTY(QString system_version MEMBER systemVersion)
    Q_PROPERTY(QString crash_told MEMBER toldCrash)
    Q_PROPERTY(qint64 upload_backoff MEMBER backoff)
    Q_PROPERTY(qint64 upload_held_until MEMBER heldUntil)
    Q_PROPERTY(QVariantMap user_properties MEMBER properties)
    Q_PROPERTY(QVariantMap audiences MEMBER audiences)
    Q_PROPERTY(QVariantMap losses MEMBER losses)

  public:
    static constexpr qsizetype kMostProperties = 25;

    // Random, and made of nothing of the machine or the user; empty as long as nothing was kept.
    QString installation{};
    qint64 installedAt = 0;

    // The last session; 0: there has been none. Without an identifier it is over.
    qint64 sessionNumber = 0;
    QString session{};
    qint64 lastSeen = 0;
    // How long the user has looked that no event has told yet.
    qint64 engagement = 0;

    // What the automatic events were told of; no versions: there has been none.
    QString applicationVersion{};
    QString systemVersion{};
    QString toldCrash{};

    // How long the collector is left alone.
    qint64 backoff = 0;
    qint64 heldUntil = 0;

    // Texts by the names of the application's user properties.
    QVariantMap properties{};
    // Whether it is for advertising, by the names of the audiences that the user is in.
    QVariantMap audiences{};
    // Whole numbers by their reason.
    QVariantMap losses{};

    void lose(const QString& reason, qint64 number);
    // One too many is lost.
    void set(const UserProperty& property);

    // JSON, without what is empty.
    [[nodiscard]] QByteArray toJson() const;
    void read(const QByteArray& json);

    friend bool operator==(const Memory&, const Memory&) = default;
};

}  // namespace pellumar
