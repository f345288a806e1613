#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <variant>

#include "cli/CatCommand.h"
#include "cli/CommandLine.h"
#include "cli/CreateCommand.h"
#include "cli/ExtractCommand.h"
#include "cli/Interruption.h"
#include "cli/JobRunner.h"
#include "cli/ListCommand.h"
#include "cli/Messages.h"
#include "cli/ProgressLine.h"
#include "cli/SalvageCommand.h"
#include "cli/SilentConsole.h"
#include "cli/TestCommand.h"
#include "engine/FileSystem.h"
#include "engine/ZipManager.h"
#include "events/PellumarAnalytics.h"
#include "platform/DocumentDirectory.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/RecordingAnalytics.h"
#include "platform/UserFolders.h"
#include "settings/UserSettings.h"

using namespace pellumar;

namespace {

// A standard stream that the caller has closed would lend its number to the first file that is
// opened, and diagnostics would be written into an archive.
void occupyStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) < 0) {
            static_cast<void>(::open("/dev/null", O_RDONLY));
        }
    }
}

// A workspace of its own beside the application's, which would empty this one at its launch.
tl::expected<std::filesystem::path, std::string> documentsOf(const WorkspaceArguments& arguments) {
    if (!arguments.documents) {
        if (const std::optional<std::string> reason = UserFolders::whyMissing()) {
            return tl::unexpected(*reason + " Or name one with --documents.");
        }
        return UserFolders::data("Terminal");
    }
    std::error_code error;
    std::filesystem::path path = std::filesystem::absolute(*arguments.documents, error);
    if (error) {
        return tl::unexpected("The folder of --documents: " + error.message());
    }
    // Without "." and ".." in it, for it is printed; if that cannot be, it is right all the same.
    std::filesystem::path plain = std::filesystem::weakly_canonical(path, error);
    return error ? std::move(path) : std::move(plain);
}

// How long a line of a job may wait for the next.
constexpr std::chrono::milliseconds kConsolePatience(100);

// Two lines a file: written one by one they would slow down a job of many small files, and the more
// so a program at the other end of a pipe.
void bufferStandardError() {
    static std::array<char, 64UL * 1024> buffer;
    static_cast<void>(std::setvbuf(stderr, buffer.data(), _IOFBF, buffer.size()));
}

// Qt has something to say about locales that are not UTF-8; names are bytes here.
void dropQtMessage(QtMsgType /*type*/,
                   const QMessageLogContext& /*context*/,
                   const QString& /*message*/) {}

// One road for each command.
template <typename... Roads>
struct Commands : Roads... {
    using Roads::operator()...;
};
template <typename... Roads>
Commands(Roads...) -> Commands<Roads...>;

// The jobs of the application, in a workspace.
int runInWorkspace(const WorkspaceArguments& arguments,
                   const CommandLine& commandLine,
                   Messages& messages) {
    const tl::expected<std::filesystem::path, std::string> documents = documentsOf(arguments);
    if (!documents) {
        return messages.fail(documents.error());
    }
    StreamConsole lines(stderr, kConsolePatience);
    SilentConsole silence;
    const bool silent = commandLine.quiet || messages.hasStatus();
    if (!silent) {
        bufferStandardError();
    }
    Console& console = silent ? static_cast<Console&>(silence) : lines;
    const FileSystem fileSystem(DocumentDirectory(*documents), console);
    RecordingAnalytics engine;
    // Nothing leaves this program, so it has no need of the user's preferences.
    UserDefaults noPreferences(QStringLiteral("/dev/null"));
    const UserSettings settings(noPreferences);
    const PellumarAnalytics analytics(settings, engine);
    Interruption interruption;
    ProgressLine progress(messages);
    MainDispatchQueue mainQueue;
    GlobalDispatchQueue backgroundQueue;
    const std::shared_ptr<ZipManager> zipManager = ZipManager::create({
        .fileSystem = fileSystem,
        .analytics = analytics,
        .console = console,
        .mainQueue = mainQueue,
        .backgroundQueue = backgroundQueue,
        .stop = interruption.token(),
        .progress = progress.handler(),
    });
    return JobRunner(arguments,
                     commandLine.endWithNul,
                     messages,
                     fileSystem,
                     *zipManager,
                     interruption,
                     progress)
        .run();
}

int run(int argc, char** argv) {
    const auto commandLine = CommandLine::parse(argc, argv);
    if (!commandLine) {
        return commandLine.error();
    }
    qInstallMessageHandler(dropQtMessage);
    Messages messages(commandLine->quiet);
    return std::visit(
        Commands{
            [&](const WorkspaceArguments& arguments) {
                const QCoreApplication application(argc, argv);
                return runInWorkspace(arguments, *commandLine, messages);
            },
            [&](const CreateArguments& arguments) { return createArchive(arguments, messages); },
            [&](const ExtractArguments& arguments) { return extractArchive(arguments, messages); },
            [&](const CatArguments& arguments) { return printEntries(arguments, messages); },
            [&](const ListArguments& arguments) {
                return listArchive(arguments, commandLine->endWithNul, messages);
            },
            [&](const TestArguments& arguments) { return testArchives(arguments, messages); },
            [&](const SalvageArguments& arguments) { return salvageArchive(arguments, messages); },
        },
        commandLine->command);
}

}  // namespace

int main(int argc, char** argv) {
    occupyStandardStreams();
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        // No memory is left, which is found out wherever some is asked for.
        static_cast<void>(std::fprintf(stderr, "pellumar: %s\n", error.what()));
        return kExitFailure;
    }
}
