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

#include "cli/PrintableText.h"
#include "cli/TerminalProgress.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// What was named on the command line, seen from the folder `here`, which is empty if there is none
// any more. "." and ".." are no names for an entry, so they become the folder that they stand for.
tl::expected<fs::path, std::error_code> pathOf(const fs::path& argument, const fs::path& here) {
    std::error_code error;
    const fs::path name = argument.filename();
    fs::path path = name == "." || name == ".." ? fs::canonical(argument, error) : here / argument;
    if (!error && path.is_relative()) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    return error ? tl::expected<fs::path, std::error_code>(tl::unexpect, error) : std::move(path);
}

// Why what was named cannot be an archive, whatever is in it.
std::optional<std::string> whyNoArchive(const fs::path& argument) {
    std::error_code unknown;
    const fs::file_status status = fs::status(argument, unknown);
    if (!fs::exists(status) || fs::is_regular_file(status)) {
        return std::nullopt;
    }
    return fs::is_directory(status) ? "is a folder, not an archive"
                                    : "is no file; only files can be extracted";
}

}  // namespace

JobRunner::JobRunner(const CommandLine& commandLine,
                     const FileSystem& fileSystem,
                     ZipManager& zipManager,
                     const TerminalDiagnostics& diagnostics)
    : commandLine_(commandLine),
      fileSystem_(fileSystem),
      zipManager_(zipManager),
      diagnostics_(diagnostics) {}

int JobRunner::run() {
    const bool zipping = commandLine_.operation == OperationType::kZip;
    const std::vector<fs::path> arguments =
        zipping ? commandLine_.files : std::vector{commandLine_.archive};
    std::error_code nowhere;
    const fs::path here = fs::current_path(nowhere);
    std::vector<fs::path> paths;
    const std::optional<fs::path> target =
        localPath(fileSystem_.archive(QString::fromStdString(commandLine_.title)));
    std::error_code missing;
    const bool replaces = zipping && target && fs::exists(*target, missing);
    // The job would delete it, with all that is in it.
    if (replaces && fs::is_directory(fs::symlink_status(*target, missing))) {
        return fail(target->native() + ": is a folder, and would be replaced");
    }
    for (const fs::path& argument : arguments) {
        tl::expected<fs::path, std::error_code> path = pathOf(argument, here);
        if (!path) {
            return fail(argument.native() + ": " + path.error().message());
        }
        std::error_code different;
        if (replaces && fs::equivalent(*target, argument, different)) {
            return fail(argument.native() + ": is the archive that would be replaced");
        }
        paths.push_back(*std::move(path));
    }
    if (zipping) {
        if (const auto clash = findSameNames(paths)) {
            return fail(*clash);
        }
    } else if (const auto reason = whyNoArchive(commandLine_.archive)) {
        return fail(commandLine_.archive.native() + ": " + *reason);
    }
    fileSystem_.createFolders();
    QList<QUrl> urls;
    std::transform(paths.begin(), paths.end(), std::back_inserter(urls), fileUrl);
    const std::optional<QList<QUrl>> files = zipping ? zip(urls) : unzip(urls.first());
    // A compression whose archive could not be created calls itself a success.
    const std::optional<std::string> failure = diagnostics_.failure();
    if (!files || failure) {
        return fail(failure.value_or("failed"));
    }
    return print(*files) ? kExitSuccess
                         : fail("standard output: " + std::generic_category().message(errno));
}

std::optional<QList<QUrl>> JobRunner::zip(const QList<QUrl>& files) {
    std::shared_ptr<TerminalProgress> progress;
    if (!commandLine_.quiet && ::isatty(STDERR_FILENO) != 0) {
        progress = std::make_shared<TerminalProgress>(stderr, files.size());
        zipManager_.setDelegate(progress);
    }
    std::optional<QList<QUrl>> result;
    QEventLoop loop;
    zipManager_.zip(files,
                    QString::fromStdString(commandLine_.title),
                    [&result, &loop](const std::optional<QUrl>& archive) {
                        if (archive) {
                            result = QList<QUrl>{*archive};
                        }
                        loop.quit();
                    });
    loop.exec();
    return result;
}

std::optional<QList<QUrl>> JobRunner::unzip(const QUrl& archive) {
    std::optional<QList<QUrl>> result;
    QEventLoop loop;
    zipManager_.unzip(archive, [&result, &loop](std::optional<QList<QUrl>> files) {
        result = std::move(files);
        loop.quit();
    });
    loop.exec();
    return result;
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

std::optional<std::string> JobRunner::findSameNames(const std::vector<fs::path>& files) const {
    struct Seen {
        const fs::path* first;
        int count;
    };
    std::unordered_map<std::string, Seen> names;
    for (const fs::path& file : files) {
        // A folder may end with a slash.
        const std::string name =
            (file.has_filename() ? file : file.parent_path()).filename().native();
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
