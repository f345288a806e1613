#pragma once

#include <tl/expected.hpp>
#include <variant>

#include "cli/Arguments.h"

namespace pellumar {

// What was asked for on the command line.
struct CommandLine {
    std::variant<WorkspaceArguments,
                 CreateArguments,
                 ExtractArguments,
                 CatArguments,
                 ListArguments,
                 TestArguments,
                 SalvageArguments>
        command;
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
