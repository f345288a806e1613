#pragma once

#include <QStringList>

#include "support/collector/Collector.h"

namespace pellumar::test {

// Reads a request as a collector does, strictly: what the protocol does not allow, or what of its
// conventions is missing, is added to `faults`.
[[nodiscard]] CollectedBatch readBatch(const HttpRequest& request, QStringList& faults);

}  // namespace pellumar::test
