#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <tl/expected.hpp>

#include "archive/base/Password.h"

namespace pellumar {

// The first line of the file, without its end; the error is a phrase for people.
[[nodiscard]] tl::expected<std::shared_ptr<const archive::Password>, std::string> passwordIn(
    const std::filesystem::path& file);

// Asks on the terminal for an archive's password, without showing what is typed. Null if there is
// no terminal to ask on, or nothing was answered.
[[nodiscard]] std::shared_ptr<const archive::Password> askForPassword(
    const std::filesystem::path& archive);

}  // namespace pellumar
