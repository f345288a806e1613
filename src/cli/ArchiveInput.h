#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include "archive/Reader.h"
#include "cli/Messages.h"
#include "cli/PasswordSource.h"

namespace pellumar {

// An archive that a command reads: a file, or standard input. What goes wrong is told in `messages`
// and leaves, as the error, what the program returns.
class ArchiveInput {
  public:
    template <typename T>
    using Outcome = tl::expected<T, int>;

    // Tells what was odd about it.
    [[nodiscard]] static Outcome<ArchiveInput> open(const std::filesystem::path& path,
                                                    Messages& messages);

    [[nodiscard]] const archive::Reader& reader() const { return reader_; }
    // For messages.
    [[nodiscard]] const std::string& name() const { return name_; }

    // What a name on the command line means beside itself.
    enum class Names : std::uint8_t {
        kWithAllBelow,  // of a folder: all that is in it
        kThemselves
    };
    // The entries of these names, or all if there are none, each once. A name that stands for none
    // is taken for a pattern ("*" and "?" go for "/" as well). In the archive's order, except for
    // kThemselves: in that of the names.
    [[nodiscard]] Outcome<std::vector<std::size_t>> select(const std::vector<std::string>& names,
                                                           Names meaning) const;

    // What opens these entries; null if none of them is encrypted. From `file`, or without one
    // asked for on the terminal, until it fits.
    [[nodiscard]] Outcome<std::shared_ptr<const archive::Password>> password(
        std::span<const std::size_t> entries,
        PasswordFile& file) const;

    // Says what went wrong with it.
    [[nodiscard]] int fail(const std::string& reason) const {
        return messages_->fail(name_ + ": " + reason);
    }
    // And that something could be got out of it all the same, where it is damaged.
    [[nodiscard]] int fail(const archive::Error& error) const;

    // Whether the error is of an archive of which salvaging may get something out.
    [[nodiscard]] static bool isDamage(const archive::Error& error);

  private:
    ArchiveInput(archive::Reader reader, std::string name, Messages& messages)
        : reader_(std::move(reader)), name_(std::move(name)), messages_(&messages) {}

    [[nodiscard]] Outcome<std::shared_ptr<const archive::Password>> askForPassword(
        std::span<const std::size_t> entries) const;

    archive::Reader reader_;
    std::string name_;
    Messages* messages_;
};

}  // namespace pellumar
