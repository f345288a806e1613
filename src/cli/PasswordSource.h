#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <tl/expected.hpp>

#include "archive/base/Password.h"

namespace pellumar {

// A file that has a password in its first line, of at most 4,096 bytes, without its end; or
// standard input. It is read when the password is wanted, and once.
class PasswordFile {
  public:
    using Password = tl::expected<std::shared_ptr<const archive::Password>, std::string>;

    explicit PasswordFile(std::filesystem::path path) : path_(std::move(path)) {}

    // Whether there is one.
    [[nodiscard]] explicit operator bool() const { return !path_.empty(); }
    // For messages.
    [[nodiscard]] std::string name() const;
    // The error is a line.
    [[nodiscard]] const Password& password();

  private:
    std::filesystem::path path_;
    std::optional<Password> password_;
};

enum class NoAnswer : std::uint8_t {
    kNoTerminal,  // nobody to ask
    kNothing,     // an empty line, or the end of input
    kInterrupted  // Control-C, or the work is to stop
};

// How often a wrong password is asked for again.
inline constexpr int kMostAsked = 3;
// What to say of an archive where there is nobody to ask.
inline constexpr const char* kNeedsPassword =
    "needs a password; --password-file names a file that has it";

// Asks on the terminal for the password of what is named, without showing what is typed. Standard
// input may be something else, as it is where the archive comes from there. Control-Z stops the
// program as anywhere; when it goes on it asks again.
[[nodiscard]] tl::expected<std::shared_ptr<const archive::Password>, NoAnswer> askOnTerminal(
    const std::string& archive,
    std::stop_token stop = {});

}  // namespace pellumar
