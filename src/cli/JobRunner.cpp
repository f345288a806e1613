#include "cli/JobRunner.h"

#include <unistd.h>

#include <QEventLoop>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "cli/PasswordSource.h"
#include "cli/PrintableText.h"
#include "cli/ReportLines.h"
#include "cli/TerminalProgress.h"
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

// Why what was named cannot be an archive, whatever is in it.
std::optional<std::string> whyNoArchive(const fs::path& argument) {
    std::error_code unknown;
    const fs::file_status status = fs::status(argument, unknown);
    if (!fs::exists(status) || fs::is_regular_file(status)) {
        return std::nullopt;
    }
    return argument.native() + (fs::is_directory(status)
                                    ? ": is a folder, not an archive"
                                    : ": is no file; only files can be extracted");
}

}  // namespace

JobRunner::JobRunner(const CommandLine& commandLine,
                     const FileSystem& fileSystem,
                     ZipManager& zipManager)
    : commandLine_(commandLine), fileSystem_(fileSystem), zipManager_(zipManager) {}

int JobRunner::run() {
    return commandLine_.operation == OperationType::kZip ? zip() : unzip();
}

int JobRunner::zip() {
    const tl::expected<Paths, std::string> paths = pathsOf(commandLine_.files);
    if (!paths) {
        return fail(paths.error());
    }
    if (const std::optional<std::string> reason = whyNotZipped(*paths)) {
        return fail(*reason);
    }
    fileSystem_.createFolders();
    std::shared_ptr<TerminalProgress> progress;
    if (!commandLine_.quiet && ::isatty(STDERR_FILENO) != 0) {
        progress = std::make_shared<TerminalProgress>(stderr, paths->size());
        zipManager_.setDelegate(progress);
    }
    QList<QUrl> urls;
    std::transform(paths->begin(), paths->end(), std::back_inserter(urls), fileUrl);
    QEventLoop loop;
    zipManager_.zip(urls,
                    QString::fromStdString(commandLine_.title),
                    [&](const std::optional<QUrl>& archive, const JobReport& report) {
                        progress.reset();
                        // One whose archive could not be created calls itself a success.
                        loop.exit(finish(archive ? QList{*archive} : QList<QUrl>(), report));
                    });
    return loop.exec();
}

int JobRunner::unzip() {
    const tl::expected<Paths, std::string> paths = pathsOf({commandLine_.archive});
    if (!paths) {
        return fail(paths.error());
    }
    if (const std::optional<std::string> reason = whyNoArchive(commandLine_.archive)) {
        return fail(*reason);
    }
    std::shared_ptr<const archive::Password> password;
    if (!commandLine_.passwordFile.empty()) {
        auto read = passwordIn(commandLine_.passwordFile);
        if (!read) {
            return fail(read.error());
        }
        password = *std::move(read);
    }
    fileSystem_.createFolders();
    QEventLoop loop;
    zipManager_.unzip(
        fileUrl(paths->front()),
        [&](const std::optional<QList<QUrl>>& files, const JobReport& report) {
            loop.exit(finish(files.value_or(QList<QUrl>()), report));
        },
        [&](const std::shared_ptr<PasswordRequest>& request) {
            if (!password) {
                password = askForPassword(paths->front());
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
    if (!commandLine_.quiet) {
        static_cast<void>(std::fputs(warningLines(report).c_str(), stderr));
    }
    if (report.failureCount() > 0) {
        return fail(failureLine(report));
    }
    return print(files) ? kExitSuccess
                        : fail("standard output: " + std::generic_category().message(errno));
}

std::optional<std::string> JobRunner::whyNotZipped(const Paths& files) const {
    const std::optional<fs::path> target =
        localPath(fileSystem_.archive(QString::fromStdString(commandLine_.title)));
    std::error_code missing;
    if (target && fs::exists(*target, missing)) {
        // The job would delete it, with all that is in it.
        if (fs::is_directory(fs::symlink_status(*target, missing))) {
            return target->native() + ": is a folder, and would be replaced";
        }
        for (std::size_t i = 0; i < files.size(); ++i) {
            std::error_code different;
            if (fs::equivalent(*target, files[i], different)) {
                return commandLine_.files[i].native() + ": is the archive that would be replaced";
            }
        }
    }
    return findSameNames(files);
}

bool JobRunner::print(const QList<QUrl>& urls) const {
    const bool toTerminal = ::isatty(STDOUT_FILENO) != 0;
    std::string text;
    for (const QUrl& url : urls) {
        if (const std::optional<fs::path> path = localPath(url)) {
            text = toTerminal ? printable(path->native()) : path->native();
            text += commandLine_.endWithNul ? '\0' : '\n';
            if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
                return false;
            }
        }
    }
    return std::fflush(stdout) == 0;
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
        if (seen.count == 2 && !commandLine_.quiet) {
            const std::string text = name + ": is there twice; extracting leaves the last";
            static_cast<void>(
                std::fputs(("pellumar: warning: " + printable(text) + "\n").c_str(), stderr));
        }
    }
    return std::nullopt;
}

int JobRunner::fail(const std::string& reason) {
    static_cast<void>(std::fputs(("pellumar: " + printable(reason) + "\n").c_str(), stderr));
    return kExitFailure;
}

}  // namespace pellumar
