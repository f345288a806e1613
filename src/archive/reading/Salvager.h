#pragma once

#include <filesystem>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/Salvaging.h"

namespace pellumar::archive {

// The contract is that of salvage().
[[nodiscard]] Result<SalvageReport> salvageAll(const ByteSource& source,
                                               const std::filesystem::path& to,
                                               const SalvageOptions& options);

}  // namespace pellumar::archive
