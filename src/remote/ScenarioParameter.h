#pragma once

#include <QString>

namespace pellumar {

// A remote parameter as its reader knows it.
template <typename Value>
struct ScenarioParameter {
    // Its name in the service.
    QString key;
    // What a read yields while the service has no usable value.
    Value defaultValue;
};

}  // namespace pellumar
