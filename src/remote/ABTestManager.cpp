#include "remote/ABTestManager.h"

namespace pellumar {

ABTestManager& ABTestManager::shared() {
    static ABTestManager manager;
    return manager;
}

ABExperiments ABTestManager::experiments() const {
    return {};
}

}  // namespace pellumar
