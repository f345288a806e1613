#pragma once

#include <QString>

namespace pellumar {

// What identifies an experiment.
class ABExperimentID {
  public:
    virtual ~ABExperimentID() = default;

    // The name of the remote parameter that carries the user's variant.
    [[nodiscard]] virtual QString key() const = 0;
    // One or a few characters for the list of experiments that this build knows, "1".
    [[nodiscard]] virtual QString id() const = 0;
};

// An experiment whose variants are of type `V`, one that RemoteSettings can read: text as a rule.
template <typename V>
class ABExperiment : public ABExperimentID {
  public:
    using Variant = V;

    // The variant of users for whom nothing usable has been decided.
    [[nodiscard]] virtual Variant defaultVariant() const = 0;
};

}  // namespace pellumar
