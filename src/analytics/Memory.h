#pragma once

#include <QByteArray>
#include <QString>
#include <map>

#include "analytics/Event.h"

namespace pellumar {

// What is known from one process to the next beside the events and their counts. Times are
// milliseconds, moments since 1970 in UTC.
struct Memory {
    static constexpr int kMostProperties = 25;

    // Random, and made of nothing of the machine or the user; empty as long as nothing was kept.
    QString installation{};
    qint64 installedAt = 0;

    // The last session; 0: there has been none. Without an identifier it is over.
    qint64 sessionNumber = 0;
    QString session{};
    qint64 lastSeen = 0;
    // How long the user has looked that no event has told yet.
    qint64 engagement = 0;

    // What the automatic events were told of.
    qint64 isOpened = 0;
    QString applicationVersion{};
    QString systemVersion{};
    QString toldCrash{};

    // How long the collector is left alone.
    qint64 failures = 0;
    qint64 heldFrom = 0;
    qint64 heldUntil = 0;

    // How long the clock has been steady.
    qint64 clockSeen = 0;
    qint64 clockSteadySince = 0;

    // By their names.
    std::map<QString, UserProperty> properties{};
    // By their reason.
    std::map<QString, qint64> losses{};

    void lose(const QString& reason, qint64 number);
    // One too many is lost.
    void set(const UserProperty& property);

    // JSON.
    [[nodiscard]] QByteArray toJson() const;
    void read(const QByteArray& json);

    friend bool operator==(const Memory&, const Memory&) = default;
};

}  // namespace pellumar
