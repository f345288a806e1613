#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <tl/expected.hpp>

#include "archive/base/Password.h"

namespace pellumar {

// The first line of the file, of at most 4,096 bytes, without its end; the error is a phrase for
// people.
[[nodiscard]] tl::expected<std::shared_ptr<const archive::Password>, std::string> passwordIn(
    const std::filesystem::path& file);

enum class NoAnswer : std::uint8_t {
    kNoTerminal,  // nobody to ask
    kNothing,     // an empty line, or the end of input
    kInterrupted  // Control-C
};

// Asks on the terminal for a password, without showing what is typed. Standard input may be
// something else, as it is where the archive comes from there.
[[nodiscard]] tl::expected<std::shared_ptr<const archive::Password>, NoAnswer> askOnTerminal(
    const std::string& question);

}  // namespace pellumar
