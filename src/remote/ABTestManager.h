#pragma once

#include "remote/ABTests.h"

namespace pellumar {

// The application's experiments.
class ABTestManager {
  public:
    // The one of the process, made when it is first asked for.
    [[nodiscard]] static ABTestManager& shared();

    // None at present. A new one is declared as a class of its own and listed here.
    [[nodiscard]] ABExperiments experiments() const;
};

}  // namespace pellumar
