#pragma once

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

#include "analytics/ConsentState.h"

namespace pellumar {

using ParameterValue = std::variant<bool, qint64, double, QString>;

struct EventParameter {
    QString name;
    ParameterValue value;

    friend bool operator==(const EventParameter&, const EventParameter&) = default;
};

// An event within all limits.
struct Event {
    QString name;
    std::vector<EventParameter> parameters;
    // How many parameters of the caller's did not come so far.
    int droppedParameters = 0;
};

// An event as it is kept until it has left.
struct StoredEvent {
    // Of the row; grows with every event.
    qint64 row = 0;
    // Random, for the receiver to tell doubles by.
    QString uid;
    // Milliseconds since 1970 in UTC.
    qint64 time = 0;
    qint64 sessionNumber = 0;
    QString sessionUid;
    // As it was when the event was recorded.
    Consent consent;
    Event event;
};

}  // namespace pellumar
