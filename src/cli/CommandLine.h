#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "engine/OperationType.h"

namespace pellumar {

// What the program returns.
inline constexpr int kExitSuccess = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

// What was asked for on the command line.
struct CommandLine {
    OperationType operation = OperationType::kZip;
    std::string title;                         // kZip; without a "/"
    std::vector<std::filesystem::path> files;  // kZip: at least one
    std::filesystem::path archive;             // kUnzip
    std::filesystem::path passwordFile;        // kUnzip; empty: none was named
    std::optional<std::filesystem::path> documents;
    bool quiet = false;
    // Each path that is printed ends with a NUL instead of a line end.
    bool endWithNul = false;

    // Reads the arguments, whose bytes are kept as they are. If there is nothing to be done
    // afterwards (help, the version, or a mistake), that has been printed, and the value to return
    // from the program is the error.
    [[nodiscard]] static tl::expected<CommandLine, int> parse(int count,
                                                              const char* const* arguments);
};

}  // namespace pellumar
