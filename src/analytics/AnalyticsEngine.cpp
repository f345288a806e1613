#include "analytics/AnalyticsEngine.h"

#include <utility>

#include "analytics/AnalyticsLoop.h"
#include "analytics/MeasurementFolder.h"

namespace pellumar {

AnalyticsEngine::AnalyticsEngine(AnalyticsEnvironment environment)
    : environment_(std::move(environment)) {}

AnalyticsEngine::~AnalyticsEngine() {
    stop();
}

void AnalyticsEngine::start() {
    if (environment_.catchesCrashes) {
        marker_.emplace(MeasurementFolder::crashIn(environment_.folder),
                        environment_.versions.serviceVersion.toStdString());
    }
    CrashMarker* const marker = marker_ ? &*marker_ : nullptr;
    thread_ = std::thread([this, marker] { AnalyticsLoop(environment_, intake_, marker).run(); });
}

template <typename Value>
void AnalyticsEngine::accept(Checked<Value> checked) {
    if (!checked.isWhole) {
        intake_.noteInvalid();
    }
    if (checked.value) {
        intake_.add({.moment = environment_.now(), .what = std::move(*checked.value)});
    }
}

void AnalyticsEngine::logEventWithName(const QString& name,
                                       const std::optional<QVariantMap>& parameters) {
    accept(Event::check(name, parameters.value_or(QVariantMap())));
}

void AnalyticsEngine::setUserPropertyString(const QString& value, const QString& forName) {
    accept(UserProperty::check(forName, value));
}

void AnalyticsEngine::setConsent(ConsentKind kind, ConsentStatus status) {
    intake_.answer(
        [=, time = environment_.now().wall](Consent& consent) { consent.set(kind, status, time); });
}

void AnalyticsEngine::setCollecting(bool collecting) {
    intake_.answer([=](Consent& consent) { consent.isPaused = !collecting; });
}

void AnalyticsEngine::resetInstallation() {
    intake_.answer([](Consent& consent) { consent.isErasureOwed = true; });
}

void AnalyticsEngine::setActive(bool active) {
    intake_.add({.moment = environment_.now(), .what = ActivityChange{.inFront = active}});
}

void AnalyticsEngine::stop() {
    intake_.end(environment_.now(), AnalyticsLoop::kLongestFarewell);
    if (thread_.joinable()) {
        thread_.join();
    }
    marker_.reset();
}

}  // namespace pellumar
