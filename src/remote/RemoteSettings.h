#pragma once

#include <QString>
#include <QtGlobal>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

#include "platform/Console.h"
#include "platform/FIRRemoteConfig.h"
#include "remote/ScenarioParameter.h"

namespace pellumar {

// The remote parameters: fetches and activates them, and reads them by type. It keeps no value, and
// none has a default here: whatever the service lacks or cannot be read reads as the default of its
// descriptor, so all is the same before any fetch, offline and after a failed one.
//
// Owned by a std::shared_ptr, for a fetch holds it weakly. Reads may come from any thread.
class RemoteSettings : public std::enable_shared_from_this<RemoteSettings> {
  public:
    // What was fetched less than this ago is not fetched again.
    static constexpr std::chrono::seconds kMaximumAge{3600};

    // `console` must outlive every fetch, not only this.
    RemoteSettings(std::shared_ptr<FIRRemoteConfig> remoteConfig, Console& console);
    virtual ~RemoteSettings() = default;

    // The one over the service of the process, made when it is first asked for; it writes to
    // standard output. FIRApp::configure comes before.
    [[nodiscard]] static RemoteSettings& shared();

    // Fetches and activates, says on the console how it went, and calls `completion` whatever came
    // of it, on the service's thread. A successful fetch finds nobody to activate it, and completes
    // nothing, if this has been released meanwhile.
    virtual void fetch(std::function<void()> completion);

    // Text as it stands.
    [[nodiscard]] virtual QString value(const ScenarioParameter<QString>& parameter) const;
    // "true", "1", "false" or "0", in small or large letters.
    [[nodiscard]] virtual bool value(const ScenarioParameter<bool>& parameter) const;
    // Decimal digits with at most one sign before them, within 64 bits.
    [[nodiscard]] virtual qint64 value(const ScenarioParameter<qint64>& parameter) const;
    // Other types have no text form to read: the default. The one exception is the other name that
    // the system has for a signed integer of 64 bits.
    template <typename Value>
    [[nodiscard]] Value value(const ScenarioParameter<Value>& parameter) const;

    // Writes the active keys and values to the console; nothing at all if there are none.
    virtual void printRemoteConfigs();

  private:
    void activate(std::function<void()> completion);
    // Nothing if the service has no text for the key, or an empty one.
    [[nodiscard]] std::optional<QString> text(const QString& key) const;

    std::shared_ptr<FIRRemoteConfig> remoteConfig_;
    Console& console_;
};

template <typename Value>
Value RemoteSettings::value(const ScenarioParameter<Value>& parameter) const {
    if constexpr (std::is_integral_v<Value> && std::is_signed_v<Value> &&
                  sizeof(Value) == sizeof(qint64)) {
        return static_cast<Value>(
            value(ScenarioParameter<qint64>{parameter.key, parameter.defaultValue}));
    } else {
        return parameter.defaultValue;
    }
}

}  // namespace pellumar
