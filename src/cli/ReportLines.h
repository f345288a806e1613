#pragma once

#include <string>

#include "engine/JobReport.h"

namespace pellumar {

// A job's report for a terminal. The first failure and how many came after it, in one line without
// its end; for a report with a failure.
[[nodiscard]] std::string failureLine(const JobReport& report);

// The archive that it is about.
[[nodiscard]] std::string archiveName(const JobReport& report);

}  // namespace pellumar
