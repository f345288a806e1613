#pragma once

#include <QString>

#include "remote/RemoteSettings.h"

namespace pellumar {

// A switch that is thrown from afar.
class FeatureToggle {
  public:
    virtual ~FeatureToggle() = default;

    // Its name in the service.
    [[nodiscard]] virtual QString key() const = 0;
    // Its state while the service has no usable value.
    [[nodiscard]] virtual bool defaultValue() const = 0;

    [[nodiscard]] bool isEnabled() const { return isEnabled(RemoteSettings::shared()); }
    [[nodiscard]] bool isEnabled(const RemoteSettings& settings) const {
        return settings.value(ScenarioParameter<bool>{key(), defaultValue()});
    }
};

}  // namespace pellumar
