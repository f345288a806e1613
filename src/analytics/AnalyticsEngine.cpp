#include "analytics/AnalyticsEngine.h"

#include <utility>

#include "analytics/AnalyticsWorker.h"
#include "analytics/EventValidator.h"
#include "analytics/MeasurementFolder.h"

namespace pellumar {

AnalyticsEngine::AnalyticsEngine(AnalyticsEnvironment environment)
    : environment_(std::move(environment)), intake_(Consent(environment_.consent)) {}

AnalyticsEngine::~AnalyticsEngine() {
    stop();
}

void AnalyticsEngine::start() {
    if (environment_.crashes == AnalyticsEnvironment::CrashCatching::kOn) {
        marker_.emplace(MeasurementFolder::crashIn(environment_.folder),
                        environment_.versions.serviceVersion.toStdString());
    }
    CrashMarker* const marker = marker_ ? &*marker_ : nullptr;
    thread_ = std::thread(
        [this, marker] { AnalyticsWorker(environment_, intake_, marker).run(stop_.get_token()); });
}

void AnalyticsEngine::logEventWithName(const QString& name,
                                       const std::optional<QVariantMap>& parameters) {
    validation::CheckedEvent checked =
        validation::checkEvent(name, parameters.value_or(QVariantMap()));
    if (checked.error != MeasurementError::kNone) {
        intake_.noteInvalid();
    }
    if (checked.event) {
        intake_.add({.moment = environment_.clock->now(), .what = std::move(*checked.event)});
    }
}

void AnalyticsEngine::setUserPropertyString(const QString& value, const QString& forName) {
    validation::CheckedProperty checked = validation::checkUserProperty(forName, value);
    if (checked.error != MeasurementError::kNone) {
        intake_.noteInvalid();
    }
    if (checked.property) {
        intake_.add({.moment = environment_.clock->now(), .what = std::move(*checked.property)});
    }
}

void AnalyticsEngine::setConsent(ConsentKind kind, ConsentStatus status) {
    intake_.answer(kind, status, environment_.clock->now().wall);
}

void AnalyticsEngine::setCollecting(bool collecting) {
    intake_.pause(!collecting);
}

void AnalyticsEngine::resetInstallation() {
    intake_.erase();
}

void AnalyticsEngine::setActive(bool active) {
    intake_.add({.moment = environment_.clock->now(), .what = ActivityChange{.inFront = active}});
}

bool AnalyticsEngine::waitUntilStored(std::chrono::milliseconds timeout) {
    return intake_.waitUntilDone(timeout).isStored;
}

bool AnalyticsEngine::waitUntilObeyed(std::chrono::milliseconds timeout) {
    return intake_.waitUntilDone(timeout).isObeyed;
}

void AnalyticsEngine::stop() {
    stop_.request_stop();
    if (thread_.joinable()) {
        thread_.join();
    }
    intake_.close();
    marker_.reset();
}

}  // namespace pellumar
