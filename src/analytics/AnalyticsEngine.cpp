#include "analytics/AnalyticsEngine.h"

#include <utility>

#include "analytics/AnalyticsWorker.h"
#include "analytics/EventValidator.h"

namespace pellumar {

AnalyticsEngine::AnalyticsEngine(AnalyticsEnvironment environment, CrashCatching crashes)
    : clock_(environment.clock) {
    if (crashes == CrashCatching::kOn) {
        marker_.emplace(CrashReport::markerIn(environment.folder),
                        environment.versions.serviceVersion.toStdString());
    }
    CrashMarker* const marker = marker_ ? &*marker_ : nullptr;
    // The worker reads the disk while it is made, so the thread makes it.
    thread_ = std::thread([this, marker, given = std::move(environment)]() mutable {
        AnalyticsWorker(std::move(given), queue_, marker).run(stop_.get_token());
    });
}

AnalyticsEngine::~AnalyticsEngine() {
    stop();
}

void AnalyticsEngine::logEventWithName(const QString& name,
                                       const std::optional<QVariantMap>& parameters) {
    LoggedEvent event{.name = validation::bounded(name), .parameters = {}};
    if (parameters) {
        event.parameters = validation::bounded(*parameters);
    }
    const std::size_t bytes =
        validation::bytesOf(event.name) + validation::bytesOf(event.parameters);
    say(std::move(event), bytes);
}

void AnalyticsEngine::setUserPropertyString(const QString& value, const QString& forName) {
    UserPropertyChange change{.name = validation::bounded(forName),
                              .value = validation::bounded(value)};
    const std::size_t bytes = validation::bytesOf(change.name) + validation::bytesOf(change.value);
    say(std::move(change), bytes);
}

void AnalyticsEngine::setConsent(ConsentKind kind, ConsentStatus status) {
    say(ConsentChange{.kind = kind, .status = status});
}

void AnalyticsEngine::resetInstallation() {
    say(InstallationReset{});
}

void AnalyticsEngine::setActive(bool active) {
    say(ActivityChange{.active = active});
}

bool AnalyticsEngine::waitUntilStored(std::chrono::milliseconds timeout) {
    const auto promise = std::make_shared<std::promise<bool>>();
    std::future<bool> stored = promise->get_future();
    return say(Fence{.stored = promise}) && stored.wait_for(timeout) == std::future_status::ready &&
           stored.get();
}

void AnalyticsEngine::stop() {
    stop_.request_stop();
    if (thread_.joinable()) {
        thread_.join();
    }
}

bool AnalyticsEngine::say(decltype(QueueItem::what) what, std::size_t bytes) {
    return queue_.add({.moment = clock_->now(), .bytes = bytes, .what = std::move(what)});
}

}  // namespace pellumar
