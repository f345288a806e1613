#pragma once

#include <QSet>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace pellumar {

// How the latest fetch ended.
enum class RemoteConfigFetchStatus {
    kNoFetchYet = 0,
    kSuccess = 1,
    kFailure = 2,
    // The server wants to be left alone for a while.
    kThrottled = 3,
};

// The name with the number, "throttled (3)".
[[nodiscard]] QString toText(RemoteConfigFetchStatus status);

struct RemoteConfigError {
    // For a person, in one line without a full stop.
    QString localizedDescription;
};

struct RemoteConfigValue {
    // Nothing if the value has no text form; empty if the service holds none for the key.
    std::optional<QString> stringValue;
};

// The remote-configuration service: values by key that somebody else decides about. A fetch brings
// them here, and an activation makes them the ones that reads return; until the first activation
// there are none. All operations may be called from any thread.
class FIRRemoteConfig {
  public:
    using FetchHandler = std::function<void(RemoteConfigFetchStatus status,
                                            const std::optional<RemoteConfigError>& error)>;
    using ActivationHandler =
        std::function<void(bool changed, const std::optional<RemoteConfigError>& error)>;

    virtual ~FIRRemoteConfig() = default;

    // The one of the process. Stops the process before FIRApp::configure.
    [[nodiscard]] static std::shared_ptr<FIRRemoteConfig> remoteConfig();

    // Fetches, unless what was fetched last is younger than `duration`: then that will do. Returns
    // at once; the handler is called exactly once, on any thread. A failed fetch changes nothing.
    virtual void fetchWithExpirationDuration(std::chrono::seconds duration,
                                             FetchHandler handler) = 0;

    // Makes active what was fetched last. Returns at once; the handler is called exactly once, on
    // any thread. A failed activation leaves active what was.
    virtual void activateWithCompletion(ActivationHandler completion) = 0;

    // The active value of a key.
    [[nodiscard]] virtual RemoteConfigValue objectForKeyedSubscript(const QString& key) const = 0;

    // The keys that have active values and begin with the prefix.
    [[nodiscard]] virtual QSet<QString> keysWithPrefix(const QString& prefix) const = 0;
};

}  // namespace pellumar
