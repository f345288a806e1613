#pragma once

#include <utility>

namespace pellumar {

// Whom a build is for.
enum class Environment { kDev, kAppStore };

inline constexpr Environment kCurrentEnvironment = Environment::kAppStore;

// A value with a candidate for each environment, of which only the current one's is kept.
template <typename Value>
struct EnvironmentValue {
    EnvironmentValue(Value dev, Value appStore)
        : value(kCurrentEnvironment == Environment::kDev ? std::move(dev) : std::move(appStore)) {}

    Value value;
};

}  // namespace pellumar
