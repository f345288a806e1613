#include "cli/JobRunner.h"

#include <unistd.h>

#include <QEventLoop>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>

#include "cli/PrintableText.h"
#include "cli/TerminalProgress.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

// The URL of what was named on the command line. "." and ".." are no names for an entry, so they
// become the folder that they stand for.
tl::expected<QUrl, std::error_code> urlOf(const fs::path& argument) {
    std::error_code error;
    const fs::path name = argument.filename();
    const fs::path path = name == "." || name == ".." ? fs::canonical(argument, error)
                                                      : fs::absolute(argument, error);
    if (error) {
        return tl::unexpected(error);
    }
    return fileUrl(path);
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
    QList<QUrl> urls;
    const std::optional<fs::path> target =
        localPath(fileSystem_.archive(QString::fromStdString(commandLine_.title)));
    std::error_code missing;
    const bool replaces = zipping && target && fs::exists(*target, missing);
    for (const fs::path& argument : arguments) {
        const tl::expected<QUrl, std::error_code> url = urlOf(argument);
        if (!url) {
            return fail(argument.native() + ": " + url.error().message());
        }
        std::error_code different;
        if (replaces && fs::equivalent(*target, argument, different)) {
            return fail(argument.native() + ": is the archive that would be replaced");
        }
        urls.append(*url);
    }
    if (zipping) {
        warnOfSameNames(urls);
    } else if (const auto reason = whyNoArchive(commandLine_.archive)) {
        return fail(commandLine_.archive.native() + ": " + *reason);
    }
    fileSystem_.createFolders();
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

void JobRunner::warnOfSameNames(const QList<QUrl>& files) const {
    if (commandLine_.quiet) {
        return;
    }
    std::map<std::string, int> counts;
    for (const QUrl& file : files) {
        const std::optional<fs::path> path = localPath(file);
        if (!path) {
            continue;
        }
        // A folder may end with a slash.
        const std::string name =
            (path->has_filename() ? *path : path->parent_path()).filename().native();
        if (++counts[name] == 2) {
            const std::string text = name + ": is there twice; extracting leaves the last";
            static_cast<void>(
                std::fputs(("pellumar: warning: " + printable(text) + "\n").c_str(), stderr));
        }
    }
}

int JobRunner::fail(const std::string& reason) {
    static_cast<void>(std::fputs(("pellumar: " + printable(reason) + "\n").c_str(), stderr));
    return kExitFailure;
}

}  // namespace pellumar
