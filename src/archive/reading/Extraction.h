#pragma once

#include <filesystem>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// Extracts all of `entries`, which are those of the archive in `source` or some of them, into the
// folder `to`; the contract is that of Reader::extract. The warnings are those of the extraction
// alone.
[[nodiscard]] Result<ExtractionReport> extractInto(const std::filesystem::path& to,
                                                   const ByteSource& source,
                                                   const EntryTable& entries,
                                                   const ExtractionOptions& options);

}  // namespace pellumar::archive
