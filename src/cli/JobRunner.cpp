#include "cli/JobRunner.h"

#include <QEventLoop>
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "cli/InputFile.h"
#include "cli/Output.h"
#include "cli/PasswordSource.h"
#include "cli/ReportLines.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

// What was named on the command line, seen from the folder in which the program runs. "." and ".."
// are no names for an entry, so they become the folder that they stand for. The error is a line.
tl::expected<Paths, std::string> pathsOf(const Paths& arguments) {
    std::error_code nowhere;
    // Empty if there is none any more.
    const fs::path here = fs::current_path(nowhere);
    Paths paths;
    for (const fs::path& argument : arguments) {
        std::error_code error;
        const fs::path name = argument.filename();
        fs::path path =
            name == "." || name == ".." ? fs::canonical(argument, error) : here / argument;
        if (!error && path.is_relative()) {
            error = std::make_error_code(std::errc::no_such_file_or_directory);
        }
        if (error) {
            return tl::unexpected(argument.native() + ": " + error.message());
        }
        paths.push_back(std::move(path));
    }
    return paths;
}

// In bytes; of what has none, or cannot be looked at, nothing.
std::uint64_t sizeOf(const Paths& files) {
    std::uint64_t size = 0;
    for (const fs::path& file : files) {
        std::error_code unknown;
        if (fs::is_regular_file(file, unknown)) {
            const std::uintmax_t bytes = fs::file_size(file, unknown);
            size += unknown ? 0 : bytes;
        }
    }
    return size;
}

}  // namespace

JobRunner::JobRunner(const WorkspaceArguments& arguments,
                     bool endWithNul,
                     Messages& messages,
                     const FileSystem& fileSystem,
                     ZipManager& zipManager,
                     Interruption& interruption,
                     ProgressLine& progress)
    : arguments_(arguments),
      endWithNul_(endWithNul),
      messages_(messages),
      fileSystem_(fileSystem),
      zipManager_(zipManager),
      interruption_(interruption),
      progress_(progress) {}

int JobRunner::run() {
    return arguments_.operation == OperationType::kZip ? zip() : unzip();
}

int JobRunner::zip() {
    const tl::expected<Paths, std::string> paths = pathsOf(arguments_.files);
    if (!paths) {
        return messages_.fail(paths.error());
    }
    if (const std::optional<std::string> reason = whyNotZipped(*paths)) {
        return messages_.fail(*reason);
    }
    warnOfFolders();
    fileSystem_.createFolders();
    progress_.expect(sizeOf(*paths));
    QList<QUrl> urls;
    std::transform(paths->begin(), paths->end(), std::back_inserter(urls), fileUrl);
    QEventLoop loop;
    zipManager_.zip(urls,
                    QString::fromStdString(arguments_.title),
                    [&](const std::optional<QUrl>& archive, const JobReport& report) {
                        // One whose archive could not be created calls itself a success.
                        loop.exit(finish(archive ? QList{*archive} : QList<QUrl>(), report));
                    });
    return loop.exec();
}

int JobRunner::unzip() {
    const tl::expected<Paths, std::string> paths = pathsOf({arguments_.archive});
    if (!paths) {
        return messages_.fail(paths.error());
    }
    if (const std::optional<std::string> reason = whyNoArchive(arguments_.archive)) {
        return messages_.fail(arguments_.archive.native() + ": " + *reason);
    }
    std::shared_ptr<const archive::Password> password;
    if (PasswordFile file(arguments_.passwordFile); file) {
        if (!file.password()) {
            return messages_.fail(file.password().error());
        }
        password = *file.password();
    }
    fileSystem_.createFolders();
    QEventLoop loop;
    zipManager_.unzip(
        fileUrl(paths->front()),
        [&](const std::optional<QList<QUrl>>& files, const JobReport& report) {
            loop.exit(finish(files.value_or(QList<QUrl>()), report));
        },
        [&](const std::shared_ptr<PasswordRequest>& request) {
            if (request->wasWrong()) {
                return;
            }
            if (!password) {
                auto answer =
                    askOnTerminal(paths->front().filename().native(), interruption_.token());
                if (!answer && answer.error() == NoAnswer::kInterrupted) {
                    interruption_.interrupt(SIGINT);
                }
                password = std::move(answer).value_or(nullptr);
            }
            if (password) {
                request->tryPassword(password, [request](bool fits) {
                    if (!fits) {
                        request->giveUp();
                    }
                });
            }
        });
    return loop.exec();
}

int JobRunner::finish(const QList<QUrl>& files, const JobReport& report) const {
    messages_.clearStatus();
    if (report.failureCount() > 0 && interruption_.token().stop_requested()) {
        messages_.fail("interrupted; nothing of it stays");
        return interruption_.exitCode();
    }
    messages_.warn(archiveName(report), report.warnings());
    if (report.failureCount() > 0) {
        return messages_.fail(failureLine(report));
    }
    const std::string reason = print(files);
    return reason.empty() ? kExitSuccess : messages_.fail(reason);
}

void JobRunner::warnOfFolders() const {
    for (const fs::path& file : arguments_.files) {
        std::error_code unknown;
        if (fs::is_directory(file, unknown)) {
            messages_.warn(file.native() +
                           ": only its name goes in, not what is in it; \"pellumar create\" "
                           "takes folders whole");
        }
    }
}

std::optional<std::string> JobRunner::whyNotZipped(const Paths& files) const {
    const std::optional<fs::path> target =
        localPath(fileSystem_.archive(QString::fromStdString(arguments_.title)));
    std::error_code missing;
    if (target && fs::exists(*target, missing)) {
        // The job would delete it, with all that is in it.
        if (fs::is_directory(fs::symlink_status(*target, missing))) {
            return target->native() + ": is a folder, and would be replaced";
        }
        for (std::size_t i = 0; i < files.size(); ++i) {
            std::error_code different;
            if (fs::equivalent(*target, files[i], different)) {
                return arguments_.files[i].native() + ": is the archive that would be replaced";
            }
        }
    }
    return findSameNames(files);
}

std::string JobRunner::print(const QList<QUrl>& urls) const {
    Output output;
    for (const QUrl& url : urls) {
        if (const std::optional<fs::path> path = localPath(url)) {
            output.appendPath(path->native(), endWithNul_);
        }
    }
    return output.finish();
}

std::optional<std::string> JobRunner::findSameNames(const Paths& files) const {
    struct Seen {
        const fs::path* first;
        int count;
    };
    std::unordered_map<std::string, Seen> names;
    for (const fs::path& file : files) {
        const std::string name = withoutTrailingSlash(file).filename().native();
        Seen& seen = names.try_emplace(name, Seen{.first = &file, .count = 0}).first->second;
        if (++seen.count == 1) {
            continue;
        }
        std::error_code unknown;
        if (fs::is_directory(*seen.first, unknown) != fs::is_directory(file, unknown)) {
            return name + ": is there as a file and as a folder, which no folder can hold";
        }
        if (seen.count == 2) {
            messages_.warn(name + ": is there twice; extracting leaves the last");
        }
    }
    return std::nullopt;
}

}  // namespace pellumar
