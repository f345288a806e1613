#pragma once

#include <memory>
#include <vector>

#include "platform/Console.h"
#include "platform/FIRAnalytics.h"
#include "remote/ABExperiment.h"
#include "remote/RemoteSettings.h"
#include "remote/ScenarioParameter.h"

namespace pellumar {

// In the order of their declaration.
using ABExperiments = std::vector<std::shared_ptr<const ABExperimentID>>;

// Reads the variants of experiments, and reports which experiments this build knows.
class ABTests {
  public:
    // All must outlive this.
    ABTests(const RemoteSettings& remoteSettings, FIRAnalytics& analytics, Console& console)
        : remoteSettings_(remoteSettings), analytics_(analytics), console_(console) {}

    // The one over the services of the process, made when it is first asked for; it writes to
    // standard output. FIRApp::configure comes before.
    [[nodiscard]] static ABTests& shared();

    // The user's variant as it is at this moment: it may change between two calls, when what has
    // been fetched is activated. A text is returned though it names no known variant. May be called
    // from any thread.
    template <typename Experiment>
    [[nodiscard]] typename Experiment::Variant variant(const Experiment& experiment) const {
        return remoteSettings_.value(ScenarioParameter<typename Experiment::Variant>{
            experiment.key(), experiment.defaultVariant()});
    }

    // Sets the user property "participating_tests" to the ids, "|1|7|", whatever the user has said
    // about usage events. Called once, at launch, before the first fetch. Stops the process if that
    // is longer, by textLength, than the 36 characters that the property takes.
    void registerExperiments(const ABExperiments& experiments) const;

  private:
    const RemoteSettings& remoteSettings_;
    FIRAnalytics& analytics_;
    Console& console_;
};

}  // namespace pellumar
