#pragma once

#include <QHash>
#include <utility>

#include "platform/FIRRemoteConfig.h"

namespace pellumar::test {

// Holds what a test puts there, and calls handlers when the test does.
class FakeRemoteConfig : public FIRRemoteConfig {
  public:
    void fetchWithExpirationDuration(std::chrono::seconds duration, FetchHandler handler) override {
        maximumAge = duration;
        fetchHandler = std::move(handler);
    }
    void activateWithCompletion(ActivationHandler completion) override {
        activationHandler = std::move(completion);
    }
    [[nodiscard]] RemoteConfigValue objectForKeyedSubscript(const QString& key) const override {
        return {.stringValue = values.value(key, QString(""))};
    }
    [[nodiscard]] QSet<QString> keysWithPrefix(const QString& prefix) const override {
        QSet<QString> keys;
        for (const QString& key : values.keys()) {
            if (key.startsWith(prefix)) {
                keys.insert(key);
            }
        }
        return keys;
    }

    QHash<QString, std::optional<QString>> values;
    std::chrono::seconds maximumAge{0};
    FetchHandler fetchHandler;
    ActivationHandler activationHandler;
};

}  // namespace pellumar::test
