#include "analytics/AutomaticEvents.h"

#include <utility>

#include "analytics/EventNaming.h"

namespace pellumar {
namespace {

const QString kOpened = QStringLiteral("opened");

// Keeps the version, and tells an update if it was another one.
void follow(StateTable& state,
            const QString& key,
            const QString& version,
            const QString& eventName,
            std::vector<Event>& events) {
    const std::optional<QString> before = state.text(key);
    if (before == version) {
        return;
    }
    state.set(key, version);
    if (before) {
        events.push_back({.name = eventName,
                          .parameters = {{.name = automatic::kPreviousVersion, .value = *before}}});
    }
}

}  // namespace

std::vector<Event> AutomaticEvents::atStart(StateTable& state, const ProductVersions& versions) {
    std::vector<Event> events;
    if (!state.number(kOpened)) {
        skipFirstOpen(state);
        events.push_back({.name = automatic::kFirstOpen, .parameters = {}});
    }
    follow(state,
           QStringLiteral("app_version"),
           versions.serviceVersion,
           automatic::kAppUpdate,
           events);
    follow(state,
           QStringLiteral("system_version"),
           versions.osVersion,
           automatic::kSystemUpdate,
           events);
    return events;
}

void AutomaticEvents::skipFirstOpen(StateTable& state) {
    state.set(kOpened, 1);
}

Event AutomaticEvents::sessionStart(qint64 number) {
    return {.name = automatic::kSessionStart,
            .parameters = {{.name = automatic::kSessionNumber, .value = number}}};
}

Event AutomaticEvents::engagement(qint64 milliseconds) {
    return {.name = automatic::kEngagement,
            .parameters = {{.name = automatic::kEngagementTime, .value = milliseconds}}};
}

Event AutomaticEvents::crash(const CrashReport& report) {
    return {.name = automatic::kCrash,
            .parameters = {{.name = automatic::kSignal, .value = report.signal},
                           {.name = automatic::kCrashedVersion, .value = report.version},
                           {.name = automatic::kStack, .value = report.stack}}};
}

}  // namespace pellumar
