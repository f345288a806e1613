#include "cli/CreateCommand.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "archive/Writer.h"
#include "cli/HumanSize.h"
#include "cli/Interruption.h"
#include "cli/PasswordSource.h"
#include "cli/PathList.h"
#include "cli/ProgressLine.h"
#include "cli/SourceTree.h"

namespace pellumar {
namespace {

using archive::ErrorCode;
using archive::Result;
using archive::Writer;

bool goesToStandardOutput(const CreateArguments& arguments) {
    return arguments.archive == kStandardStream;
}

// What stands where the archive goes.
std::optional<struct stat> targetStatus(const CreateArguments& arguments) {
    struct stat status {};
    const int outcome = goesToStandardOutput(arguments)
                            ? ::fstat(STDOUT_FILENO, &status)
                            : ::stat(arguments.archive.c_str(), &status);
    return outcome == 0 ? std::optional(status) : std::nullopt;
}

std::optional<std::string> whyNotMade(const CreateArguments& arguments) {
    if (goesToStandardOutput(arguments)) {
        return ::isatty(STDOUT_FILENO) != 0 ? std::optional<std::string>(
                                                  "standard output is a terminal, which takes no "
                                                  "archive: \"> FILE\"")
                                            : std::nullopt;
    }
    struct stat status {};
    if (::lstat(arguments.archive.c_str(), &status) != 0) {
        return std::nullopt;
    }
    if (!arguments.force) {
        return arguments.archive.native() + ": exists already; --force would replace it";
    }
    const std::optional<struct stat> target = targetStatus(arguments);
    return target && !S_ISREG(target->st_mode)
               ? std::optional(arguments.archive.native() + ": is no file, and stays")
               : std::nullopt;
}

// Everything that was named, or nothing if it has been told why not.
bool gather(const CreateArguments& arguments, SourceTree& sources, Messages& messages) {
    const bool isListed = !arguments.list.empty();
    std::vector<std::filesystem::path> paths = arguments.paths;
    if (isListed) {
        auto list = readPathList(arguments.list);
        if (!list) {
            messages.fail(list.error());
            return false;
        }
        paths = *std::move(list);
    }
    bool areAllThere = true;
    for (const std::filesystem::path& path : paths) {
        areAllThere = sources.add(path, !isListed) && areAllThere;
    }
    if (areAllThere && sources.size() == 0) {
        messages.fail("there is nothing to put into the archive");
    }
    return areAllThere && sources.size() > 0;
}

void warnOfLinks(const SourceTree& sources, Messages& messages) {
    constexpr std::size_t kMostNamed = 10;
    const std::vector<std::string> links = sources.linksThatLeave();
    for (std::size_t i = 0; i < std::min(links.size(), kMostNamed); ++i) {
        messages.warn(links[i] +
                      ": a link that leads out of the archive; \"pellumar extract\" "
                      "will refuse it");
    }
    if (links.size() > kMostNamed) {
        messages.warn(std::to_string(links.size() - kMostNamed) +
                      " more links that lead out of the archive");
    }
}

// One archive on its way.
class Creation {
  public:
    Creation(const CreateArguments& arguments, const SourceTree& sources, Messages& messages)
        : arguments_(arguments), sources_(sources), messages_(messages) {}

    int run(const std::shared_ptr<const archive::Password>& password) {
        const Interruption interruption;
        Result<> made;
        {
            ProgressLine line(messages_);
            line.expect(sources_.bytes());
            made = make(password, interruption, line);
        }
        if (made) {
            return hasFailures_ || sources_.isIncomplete() ? kExitFailure : kExitSuccess;
        }
        if (made.error().code == ErrorCode::kCancelled) {
            messages_.fail("interrupted; no archive was made");
            return interruption.exitCode();
        }
        return fail(made.error());
    }

  private:
    // As many entries as are held at once.
    static constexpr std::size_t kBatch = 32UL * 1024;

    [[nodiscard]] std::string name() const {
        return goesToStandardOutput(arguments_) ? "standard output" : arguments_.archive.native();
    }

    int fail(const archive::Error& error) {
        hasFailures_ = true;
        return messages_.fail(name() + ": " + error.describe());
    }

    Result<> make(const std::shared_ptr<const archive::Password>& password,
                  const Interruption& interruption,
                  ProgressLine& line) {
        auto writer = open({.replace = arguments_.force,
                            .reproducible = arguments_.reproducible,
                            .stop = interruption.token(),
                            .progress = line.handler()});
        if (!writer) {
            return archive::passOn(writer);
        }
        for (std::size_t first = 0; first < sources_.size(); first += kBatch) {
            std::vector<archive::NewEntry> entries;
            const std::size_t end = std::min(first + kBatch, sources_.size());
            for (std::size_t i = first; i < end; ++i) {
                entries.push_back(sources_.entry(i));
                entries.back().options = {.level = arguments_.level,
                                          .password = password,
                                          .encryption = arguments_.encryption};
            }
            if (auto added = addBatch(*writer, entries); !added) {
                return added;
            }
        }
        if (auto closed = writer->close(); !closed) {
            return closed;
        }
        messages_.warn(name(), writer->warnings());
        messages_.remark(humanCount(sources_.size()) + ", " + humanSize(sources_.bytes()));
        return {};
    }

    [[nodiscard]] Result<Writer> open(archive::WriterOptions options) const {
        if (!goesToStandardOutput(arguments_)) {
            return Writer::create(arguments_.archive, std::move(options));
        }
        archive::File output(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0));
        return output.isOpen() ? Writer::toDescriptor(std::move(output), std::move(options))
                               : archive::systemFailure(ErrorCode::kOpenFailed);
    }

    // What cannot be read is told and left out; what cannot be written ends it.
    Result<> addBatch(Writer& writer, const std::vector<archive::NewEntry>& entries) {
        return writer.addAll(entries, [this](std::size_t, const Result<>& added) {
            if (added) {
                return Writer::Next::kGoOn;
            }
            switch (added.error().code) {
                case ErrorCode::kCancelled:
                case ErrorCode::kNoSpace:
                case ErrorCode::kWriteFailed:
                case ErrorCode::kOutOfMemory:
                case ErrorCode::kEncryptionNotInstalled:
                    return Writer::Next::kStop;
                default:
                    fail(added.error());
                    return Writer::Next::kGoOn;
            }
        });
    }

    const CreateArguments& arguments_;
    const SourceTree& sources_;
    Messages& messages_;
    bool hasFailures_ = false;
};

}  // namespace

int createArchive(const CreateArguments& arguments, Messages& messages) {
    if (const std::optional<std::string> reason = whyNotMade(arguments)) {
        return messages.fail(*reason);
    }
    std::shared_ptr<const archive::Password> password;
    if (PasswordFile file(arguments.passwordFile); file) {
        if (!file.password()) {
            return messages.fail(file.password().error());
        }
        password = *file.password();
        if (password->text().empty()) {
            return messages.fail(file.name() + ": holds no password");
        }
    }
    SourceTree sources(arguments.exclude, targetStatus(arguments), messages);
    if (!gather(arguments, sources, messages)) {
        return kExitFailure;
    }
    warnOfLinks(sources, messages);
    return Creation(arguments, sources, messages).run(password);
}

}  // namespace pellumar
