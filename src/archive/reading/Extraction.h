#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "archive/base/Error.h"
#include "archive/base/Password.h"
#include "archive/base/Warning.h"
#include "archive/reading/ArchiveReader.h"

namespace pellumar::archive {

struct ExtractionOptions {
    bool skipChecksum = false;
    // For encrypted entries; may be null, and has to live until the extraction is over.
    const Password* password = nullptr;
    // How many threads work, the calling one included; 0 means as many as the machine has, up to
    // eight.
    unsigned threads = 0;
};

struct ExtractionResult {
    std::size_t entries = 0;
    std::uint64_t bytes = 0;
    Warnings warnings;  // of the extraction alone
};

// Extracts all of `archive` into the folder `to`; the contract is that of unzipItem.
[[nodiscard]] Result<ExtractionResult> extractAll(const ArchiveReader& archive,
                                                  const std::filesystem::path& to,
                                                  const ExtractionOptions& options);

}  // namespace pellumar::archive
