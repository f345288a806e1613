#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "archive/base/ExtractionOptions.h"
#include "archive/base/NewEncryption.h"
#include "engine/OperationType.h"

namespace pellumar {

// What the program returns.
inline constexpr int kExitSuccess = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;
// And a number more than this if a signal ended the work, as shells have it.
inline constexpr int kExitSignal = 128;

// Stands for standard input or standard output where a file is named.
inline constexpr const char* kStandardStream = "-";

// What each command was told. A password file that is empty was not named.

struct WorkspaceArguments {
    OperationType operation = OperationType::kZip;
    std::string title;                         // kZip; without a "/"
    std::vector<std::filesystem::path> files;  // kZip: at least one
    std::filesystem::path archive;             // kUnzip
    std::filesystem::path passwordFile;        // kUnzip
    std::optional<std::filesystem::path> documents;
};

struct CreateArguments {
    std::filesystem::path archive;             // may be kStandardStream
    std::vector<std::filesystem::path> paths;  // empty if there is a list
    std::filesystem::path list;                // may be kStandardStream; empty if there is none
    std::vector<std::string> exclude;
    std::optional<int> level;  // 0 to store, 1 to 9; otherwise by what the data is like
    std::filesystem::path passwordFile;
    archive::NewEncryption encryption = archive::NewEncryption::kAes256;
    bool reproducible = false;
    bool force = false;
};

struct ExtractArguments {
    std::filesystem::path archive;   // may be kStandardStream
    std::vector<std::string> names;  // none: all
    std::filesystem::path to = ".";
    archive::ExistingFiles existing = archive::ExistingFiles::kRefuse;
    std::size_t strip = 0;
    bool sync = false;
    std::filesystem::path passwordFile;
};

struct CatArguments {
    std::filesystem::path archive;   // may be kStandardStream
    std::vector<std::string> names;  // at least one
    std::filesystem::path passwordFile;
};

enum class ListForm : std::uint8_t { kTable, kNames, kJson };

struct ListArguments {
    std::filesystem::path archive;   // may be kStandardStream
    std::vector<std::string> names;  // none: all
    ListForm form = ListForm::kTable;
};

struct TestArguments {
    std::vector<std::filesystem::path> archives;  // at least one; may be kStandardStream
    std::filesystem::path passwordFile;
};

struct SalvageArguments {
    std::filesystem::path archive;
    std::filesystem::path to;
    std::filesystem::path passwordFile;
};

}  // namespace pellumar
