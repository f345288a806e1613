#include "cli/ArchiveInput.h"

#include <fnmatch.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "cli/Arguments.h"
#include "cli/InputFile.h"
#include "cli/Interruption.h"

namespace pellumar {
namespace {

using archive::Error;
using archive::ErrorCode;
using archive::Reader;
using Indices = std::vector<std::size_t>;

archive::Result<Reader> openReader(const std::filesystem::path& path) {
    if (path != kStandardStream) {
        return Reader::open(path);
    }
    archive::File input = standardInput();
    if (!input.isOpen()) {
        return archive::systemFailure(ErrorCode::kOpenFailed);
    }
    return Reader::open(std::move(input));
}

std::string wordsFor(const Error& error) {
    return error.describe() +
           (ArchiveInput::isDamage(error) ? "; \"pellumar salvage\" gets out what is whole" : "");
}

// As the archive has it: "./a/b/" is "a/b".
std::string_view plain(std::string_view name) {
    while (name.starts_with("./")) {
        name.remove_prefix(2);
    }
    while (name.size() > 1 && name.ends_with('/')) {
        name.remove_suffix(1);
    }
    return name;
}

Indices matching(const Reader& reader, const std::string& pattern) {
    Indices found;
    for (std::size_t i = 0; i < reader.size(); ++i) {
        if (::fnmatch(pattern.c_str(), std::string(reader[i].path).c_str(), 0) == 0) {
            found.push_back(i);
        }
    }
    return found;
}

// The entries of these names, in the names' order.
tl::expected<Indices, Error> themselves(const Reader& reader,
                                        const std::vector<std::string>& names) {
    std::unordered_map<std::string_view, std::optional<std::size_t>> named;
    for (const std::string& name : names) {
        named.try_emplace(plain(name));
    }
    for (std::size_t i = 0; i < reader.size(); ++i) {
        if (const auto found = named.find(reader[i].path); found != named.end()) {
            found->second = i;
        }
    }
    Indices selected;
    for (const std::string& name : names) {
        const std::string_view path = plain(name);
        const std::optional<std::size_t>& index = named[path];
        const Indices found = index ? Indices{*index} : matching(reader, std::string(path));
        if (found.empty()) {
            return archive::Failure(Error{.code = ErrorCode::kNoSuchEntry, .entry = name});
        }
        selected.insert(selected.end(), found.begin(), found.end());
    }
    return selected;
}

// The same with all that is below them, in the archive's order.
tl::expected<Indices, Error> withAllBelow(const Reader& reader,
                                          const std::vector<std::string>& names) {
    std::vector<std::string_view> rest;
    rest.reserve(names.size());
    for (const std::string& name : names) {
        rest.push_back(plain(name));
    }
    auto found = reader.select(rest);
    Indices selected;
    while (!found) {
        if (found.error().code != ErrorCode::kNoSuchEntry) {
            return archive::passOn(found);
        }
        const std::string pattern = found.error().entry;
        const Indices matches = matching(reader, pattern);
        if (matches.empty()) {
            return archive::passOn(found);
        }
        selected.insert(selected.end(), matches.begin(), matches.end());
        rest.erase(std::remove(rest.begin(), rest.end(), pattern), rest.end());
        found = reader.select(rest);
    }
    selected.insert(selected.end(), found->begin(), found->end());
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    return selected;
}

}  // namespace

ArchiveInput::Outcome<ArchiveInput> ArchiveInput::open(const std::filesystem::path& path,
                                                       Messages& messages) {
    // With the zone unset, the system would look for its file anew for each entry's time.
    ::setenv("TZ", ":/etc/localtime", 0);
    std::string name = inputName(path);
    if (const std::optional<std::string> reason = whyNoArchive(path)) {
        return tl::unexpected(messages.fail(name + ": " + *reason));
    }
    auto reader = openReader(path);
    if (!reader) {
        return tl::unexpected(messages.fail(name + ": " + wordsFor(reader.error())));
    }
    messages.warn(name, reader->warnings());
    return ArchiveInput(*std::move(reader), std::move(name), messages);
}

int ArchiveInput::fail(const Error& error) const {
    return fail(wordsFor(error));
}

bool ArchiveInput::isDamage(const Error& error) {
    switch (error.code) {
        case ErrorCode::kTruncated:
        case ErrorCode::kDamagedDirectory:
        case ErrorCode::kHeaderMismatch:
        case ErrorCode::kDamagedData:
        case ErrorCode::kChecksumMismatch:
        case ErrorCode::kVolumeMissing:
            return true;
        default:
            return false;
    }
}

ArchiveInput::Outcome<Indices> ArchiveInput::select(const std::vector<std::string>& names,
                                                    Names meaning) const {
    Indices selected;
    if (names.empty()) {
        selected.resize(reader_.size());
        for (std::size_t i = 0; i < selected.size(); ++i) {
            selected[i] = i;
        }
        return selected;
    }
    auto found =
        meaning == Names::kWithAllBelow ? withAllBelow(reader_, names) : themselves(reader_, names);
    if (!found) {
        return tl::unexpected(fail(found.error()));
    }
    return *std::move(found);
}

ArchiveInput::Outcome<std::shared_ptr<const archive::Password>> ArchiveInput::password(
    std::span<const std::size_t> entries,
    PasswordFile& file) const {
    const bool isNeeded = std::any_of(entries.begin(), entries.end(), [this](std::size_t index) {
        return reader_[index].encrypted && !reader_[index].fault;
    });
    if (!isNeeded) {
        return nullptr;
    }
    if (!file) {
        return askForPassword(entries);
    }
    const auto& password = file.password();
    if (!password) {
        return tl::unexpected(messages_->fail(password.error()));
    }
    if (auto checked = reader_.checkPassword(**password, entries); !checked) {
        return tl::unexpected(fail(checked.error()));
    }
    return *password;
}

ArchiveInput::Outcome<std::shared_ptr<const archive::Password>> ArchiveInput::askForPassword(
    std::span<const std::size_t> entries) const {
    // Whatever is wrong beside the password is told before somebody types it in vain.
    const auto readable = reader_.checkPassword(archive::Password(""), entries);
    if (!readable && readable.error().code != ErrorCode::kWrongPassword) {
        return tl::unexpected(fail(readable.error()));
    }
    // A signal would leave the terminal silent.
    Interruption interruption;
    for (int asked = 1;; ++asked) {
        auto answer = askOnTerminal(name_, interruption.token());
        if (!answer && answer.error() == NoAnswer::kInterrupted) {
            interruption.interrupt(SIGINT);
            return tl::unexpected(interruption.exitCode());
        }
        if (!answer) {
            return tl::unexpected(fail(kNeedsPassword));
        }
        const auto checked = reader_.checkPassword(**answer, entries);
        if (checked) {
            return *std::move(answer);
        }
        const int code = fail(checked.error());
        if (asked == kMostAsked || checked.error().code != ErrorCode::kWrongPassword) {
            return tl::unexpected(code);
        }
    }
}

}  // namespace pellumar
