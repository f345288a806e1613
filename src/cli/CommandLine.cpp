#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <string_view>
#include <utility>

#include "cli/PrintableText.h"

namespace pellumar {
namespace {

std::string mayNotBeEmpty(const std::string& value) {
    return value.empty() ? "must not be empty" : "";
}

// The title becomes the name of a file in the workspace; a path could lead out of it, and the job
// deletes what stands in the archive's place first.
std::string mustStayInside(const std::string& title) {
    const bool leaves = ("/" + title + "/").find("/../") != std::string::npos;
    return leaves ? "a title must not lead out of the workspace: " + title : "";
}

// What keeps CLI11 from seeing more than a name in one. In front of a path it changes nothing, and
// a title sheds it again.
constexpr std::string_view kGuard = "./";

// The arguments from the last to the first, as the parser takes them. It would take "[a,b]" for a
// list of two, and "--" for the end of the command if that had one name already.
std::vector<std::string> guarded(int count, const char* const* arguments) {
    std::vector<std::string> reversed;
    bool onlyNames = false;
    for (int i = 1; i < count; ++i) {
        std::string argument = arguments[i];
        if (!onlyNames && argument == "--") {
            onlyNames = true;
            continue;
        }
        const bool isLikeOption = argument.size() > 1 && argument.starts_with('-');
        if (argument.starts_with('[') || (onlyNames && isLikeOption)) {
            argument.insert(0, kGuard);
        }
        reversed.push_back(std::move(argument));
    }
    std::reverse(reversed.begin(), reversed.end());
    return reversed;
}

std::string withoutGuard(const std::string& title) {
    return title.starts_with("./[") || title.starts_with("./-") ? title.substr(kGuard.size())
                                                                : title;
}

// What people may mean by a command that is none.
constexpr std::string_view kCommands = "create, extract, list, cat, test, salvage, zip and unzip";

std::string replaced(std::string text, std::string_view what, std::string_view by) {
    const std::size_t at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), by);
}

// Of a mistake within a command, for which the parser's words are of several kinds.
std::string wordsWithin(const CLI::App& command, const CLI::Error& mistake) {
    std::string words = mistake.what();
    switch (static_cast<CLI::ExitCodes>(mistake.get_exit_code())) {
        case CLI::ExitCodes::RequiredError:
            return replaced(words, "is required", "is missing");
        case CLI::ExitCodes::ExcludesError:
            return replaced(words, " excludes ", " cannot be given together with ");
        case CLI::ExitCodes::ArgumentMismatch:
            return words.substr(0, words.find(':')) + ": a value is missing";
        case CLI::ExitCodes::ExtrasError: {
            const std::string extra = command.remaining().front();
            return (extra.starts_with('-') ? "unknown option: " : "one argument too many: ") +
                   extra;
        }
        default:
            return words;
    }
}

std::string wordsFor(const CLI::App& app, const CLI::Error& mistake) {
    if (const auto commands = app.get_subcommands(); !commands.empty()) {
        return wordsWithin(*commands.front(), mistake);
    }
    const std::vector<std::string> unknown = app.remaining();
    if (unknown.empty()) {
        return mistake.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError)
                   ? "a command is missing: there are " + std::string(kCommands)
                   : mistake.what();
    }
    if (unknown.front().starts_with('-')) {
        return "unknown option: " + unknown.front();
    }
    return "unknown command: " + unknown.front() + "; there are " + std::string(kCommands);
}

std::string describeMistake(const CLI::App* app, const CLI::Error& mistake) {
    const std::vector<CLI::App*> commands = app->get_subcommands();
    const std::string command = commands.empty() ? "" : commands.front()->get_name() + " ";
    return "pellumar: " + printable(wordsFor(*app, mistake)) + "\nRun pellumar " + command +
           "--help for more information.\n";
}

// Standard input is one thing.
void mustBeReadOnce(const std::vector<std::filesystem::path>& inputs) {
    if (std::count(inputs.begin(), inputs.end(), kStandardStream) > 1) {
        throw CLI::ValidationError("\"-\"", "standard input can be read once only");
    }
}

constexpr const char* kNoWord = " ";
constexpr const char* kSeveral = "...";

// Said before the command or behind it. In the command they are defined again, as the parser would
// take "-0" for a negative number there.
void addCommonOptions(CLI::App& app, CommandLine& line, const std::string& group) {
    app.add_flag("-q,--quiet", line.quiet, "Print nothing but what was asked for, and errors")
        ->group(group);
    app.add_flag("-0,--null", line.endWithNul, "End each path with a NUL instead of a line end")
        ->group(group);
}

CLI::App* addCommand(CLI::App& app,
                     CommandLine& line,
                     const std::string& name,
                     const std::string& description,
                     const std::string& examples) {
    CLI::App* command = app.add_subcommand(name, description);
    addCommonOptions(*command, line, "Options of every command");
    command->footer("Examples:\n" + examples);
    return command;
}

void addDocuments(CLI::App& app, WorkspaceArguments& arguments) {
    app.add_option("--documents", arguments.documents, "Folder of the workspace, for zip and unzip")
        ->check(mayNotBeEmpty)
        ->option_text("DIR");
}

CLI::Option* addArchive(CLI::App& command, std::filesystem::path& archive, const char* meaning) {
    return command.add_option("ARCHIVE", archive, meaning)
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text(kNoWord);
}

CLI::Option* addNames(CLI::App& command, std::vector<std::string>& names, const char* meaning) {
    return command.add_option("NAME", names, meaning)
        ->transform(withoutGuard)
        ->check(mayNotBeEmpty)
        ->option_text(kSeveral);
}

CLI::Option* addPasswordFile(CLI::App& command, std::filesystem::path& file) {
    return command
        .add_option("--password-file",
                    file,
                    "File whose first line is the password; \"-\" for standard input")
        ->check(mayNotBeEmpty)
        ->option_text("FILE");
}

void allowOneOf(const std::vector<CLI::Option*>& options) {
    for (std::size_t i = 0; i < options.size(); ++i) {
        options[i]->option_text(kNoWord);
        for (std::size_t k = 0; k < i; ++k) {
            options[i]->excludes(options[k]);
        }
    }
}

void addZip(CLI::App& app, CommandLine& line, WorkspaceArguments& arguments) {
    CLI::App* zip = addCommand(
        app, line, "zip", "Make an archive in the workspace", "  pellumar zip Holiday *.jpg\n");
    addDocuments(*zip, arguments);
    zip->callback([&] {
        arguments.operation = OperationType::kZip;
        line.command = arguments;
    });
    zip->add_option("TITLE", arguments.title, "Name of the archive, without \".zip\"")
        ->required()
        ->transform(withoutGuard)
        ->check(mustStayInside)
        ->option_text(kNoWord);
    zip->add_option("FILE", arguments.files, "Files, each to become an entry under its own name")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text(kSeveral);
}

void addUnzip(CLI::App& app, CommandLine& line, WorkspaceArguments& arguments) {
    CLI::App* unzip = addCommand(app,
                                 line,
                                 "unzip",
                                 "Extract an archive into the workspace",
                                 "  pellumar unzip Holiday.zip\n"
                                 "  pellumar -0 unzip Holiday.zip | xargs -0 ls -ld --\n");
    addDocuments(*unzip, arguments);
    unzip->callback([&] {
        arguments.operation = OperationType::kUnzip;
        line.command = arguments;
    });
    addArchive(*unzip, arguments.archive, "A ZIP archive");
    addPasswordFile(*unzip, arguments.passwordFile);
}

std::string mustBeALevel(const std::string& level) {
    const bool isDigit = level.size() == 1 && level >= "1" && level <= "9";
    return isDigit || level == "store" ? "" : "a level is 1 to 9, or \"store\": " + level;
}

void addEncryption(CLI::App& create, CreateArguments& arguments, CLI::Option* passwordFile) {
    static const std::map<std::string, archive::NewEncryption> kWords = {
        {"aes256", archive::NewEncryption::kAes256},
        {"aes192", archive::NewEncryption::kAes192},
        {"aes128", archive::NewEncryption::kAes128},
        {"traditional", archive::NewEncryption::kTraditional}};
    create
        .add_option_function<std::string>(
            "--encryption",
            [&arguments](const std::string& word) { arguments.encryption = kWords.at(word); },
            "aes256, if not given; aes192, aes128; or traditional, which old programs read and "
            "which can be broken")
        ->check(CLI::IsMember(kWords))
        ->needs(passwordFile)
        ->option_text("METHOD");
}

void addCreate(CLI::App& app, CommandLine& line, CreateArguments& arguments) {
    CLI::App* create =
        addCommand(app,
                   line,
                   "create",
                   "Make an archive of files and whole folders",
                   "  pellumar create photos.zip Pictures --exclude '*.tmp'\n"
                   "  pellumar create - src | ssh host 'cat > src.zip'\n"
                   "  find . -newer mark -print0 | pellumar create new.zip --from-list -\n");
    addArchive(*create, arguments.archive, "The new archive; \"-\" for standard output");
    CLI::Option* paths =
        create->add_option("PATH", arguments.paths, "Files, links, and folders with all in them")
            ->check(mayNotBeEmpty)
            ->option_text(kSeveral);
    CLI::Option* list =
        create
            ->add_option("--from-list",
                         arguments.list,
                         "Take what FILE lists instead, one a line or ended by NUL, folders "
                         "without what is in them; \"-\" for standard input")
            ->check(mayNotBeEmpty)
            ->excludes(paths)
            ->option_text("FILE");
    create
        ->add_option("--exclude",
                     arguments.exclude,
                     "Leave out what fits the pattern, and all below it; may be repeated")
        ->transform(withoutGuard)
        ->check(mayNotBeEmpty)
        ->allow_extra_args(false)
        ->option_text("GLOB");
    create
        ->add_option_function<std::string>(
            "--level",
            [&arguments](const std::string& level) {
                arguments.level = level == "store" ? 0 : level.front() - '0';
            },
            "1 (fast) to 9 (small), or store; by the data if not given")
        ->check(mustBeALevel)
        ->option_text("LEVEL");
    addEncryption(*create, arguments, addPasswordFile(*create, arguments.passwordFile));
    create->add_flag("--reproducible",
                     arguments.reproducible,
                     "Same bytes for the same files, whenever and wherever it is made");
    create->add_flag("-f,--force", arguments.force, "Replace an archive that is there");
    create->callback([&line, &arguments, paths, list] {
        if (paths->empty() && list->empty()) {
            throw CLI::RequiredError("PATH or --from-list");
        }
        mustBeReadOnce({arguments.list, arguments.passwordFile});
        line.command = arguments;
    });
}

std::string mustBeACount(const std::string& text) {
    const bool isCount =
        text.size() <= 4 && !text.empty() && std::all_of(text.begin(), text.end(), [](char letter) {
            return letter >= '0' && letter <= '9';
        });
    return isCount ? "" : "a number, 0 or more: " + text;
}

void addExtract(CLI::App& app, CommandLine& line, ExtractArguments& arguments) {
    CLI::App* extract = addCommand(app,
                                   line,
                                   "extract",
                                   "Extract an archive, or some of it",
                                   "  pellumar extract photos.zip --to Pictures\n"
                                   "  pellumar extract src.zip src/doc '*.md' --strip 1\n"
                                   "  pellumar extract - --to there < photos.zip\n");
    extract->callback([&] {
        mustBeReadOnce({arguments.archive, arguments.passwordFile});
        line.command = arguments;
    });
    addArchive(*extract, arguments.archive, "A ZIP archive; \"-\" for standard input, if a file");
    addNames(*extract,
             arguments.names,
             "Entries, folders with all in them, or patterns; all if there is none");
    extract
        ->add_option("--to",
                     arguments.to,
                     "Folder to extract into, made if need be; here if "
                     "not given")
        ->check(mayNotBeEmpty)
        ->option_text("DIR");
    std::vector<CLI::Option*> existing;
    const auto addExisting =
        [&](const char* name, archive::ExistingFiles what, const char* meaning) {
            existing.push_back(extract->add_flag_callback(
                name, [&arguments, what] { arguments.existing = what; }, meaning));
        };
    addExisting("--overwrite", archive::ExistingFiles::kOverwrite, "Replace a file that is there");
    addExisting("--skip", archive::ExistingFiles::kSkip, "Leave a file that is there as it is");
    addExisting("--rename",
                archive::ExistingFiles::kRename,
                "Extract as \"name (2).ext\" where a file is there");
    allowOneOf(existing);
    extract->add_option("--strip", arguments.strip, "Leave out so many leading parts of names")
        ->option_text("N")
        ->check(mustBeACount);
    extract->add_flag("--sync", arguments.sync, "Return when all is on the disk");
    addPasswordFile(*extract, arguments.passwordFile);
}

void addCat(CLI::App& app, CommandLine& line, CatArguments& arguments) {
    CLI::App* cat = addCommand(app,
                               line,
                               "cat",
                               "Write what entries hold to standard output",
                               "  pellumar cat src.zip src/README.md | less\n");
    cat->callback([&] {
        mustBeReadOnce({arguments.archive, arguments.passwordFile});
        line.command = arguments;
    });
    addArchive(*cat, arguments.archive, "A ZIP archive; \"-\" for standard input, if a file");
    addNames(*cat, arguments.names, "Entries or patterns, in the order wanted")->required();
    addPasswordFile(*cat, arguments.passwordFile);
}

void addList(CLI::App& app, CommandLine& line, ListArguments& arguments) {
    CLI::App* list = addCommand(app,
                                line,
                                "list",
                                "Tell what an archive holds",
                                "  pellumar list photos.zip\n"
                                "  pellumar list photos.zip --json | jq '.entries[].size'\n"
                                "  pellumar list photos.zip -0 | xargs -0 -n 1 echo\n");
    list->callback([&] { line.command = arguments; });
    addArchive(*list, arguments.archive, "A ZIP archive; \"-\" for standard input, if a file");
    addNames(*list, arguments.names, "Entries, folders with all in them, or patterns");
    allowOneOf({list->add_flag_callback(
                    "--names",
                    [&] { arguments.form = ListForm::kNames; },
                    "Names alone, one a line; with -0 ended by NUL"),
                list->add_flag_callback(
                    "--json",
                    [&] { arguments.form = ListForm::kJson; },
                    "Everything, as JSON, an entry a line")});
}

void addTest(CLI::App& app, CommandLine& line, TestArguments& arguments) {
    CLI::App* test = addCommand(app,
                                line,
                                "test",
                                "Read archives to the end and tell what is wrong",
                                "  pellumar test *.zip && echo all right\n");
    test->callback([&] {
        std::vector<std::filesystem::path> inputs = arguments.archives;
        inputs.push_back(arguments.passwordFile);
        mustBeReadOnce(inputs);
        line.command = arguments;
    });
    test->add_option(
            "ARCHIVE", arguments.archives, "ZIP archives; \"-\" for standard input, if a file")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text(kSeveral);
    addPasswordFile(*test, arguments.passwordFile);
}

void addSalvage(CLI::App& app, CommandLine& line, SalvageArguments& arguments) {
    CLI::App* salvage = addCommand(app,
                                   line,
                                   "salvage",
                                   "Get what is whole out of a damaged archive",
                                   "  pellumar salvage broken.zip --to saved\n");
    salvage->callback([&] {
        mustBeReadOnce({arguments.archive, arguments.passwordFile});
        line.command = arguments;
    });
    addArchive(
        *salvage, arguments.archive, "A damaged ZIP archive; \"-\" for standard input, if a file");
    salvage->add_option("--to", arguments.to, "Folder for what is whole, made if need be; required")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text("DIR");
    addPasswordFile(*salvage, arguments.passwordFile);
}

}  // namespace

tl::expected<CommandLine, int> CommandLine::parse(int count, const char* const* arguments) {
    CommandLine line;
    WorkspaceArguments workspace;
    CreateArguments create;
    ExtractArguments extract;
    CatArguments cat;
    ListArguments list;
    TestArguments test;
    SalvageArguments salvage;
    CLI::App app("Makes, extracts, lists and checks ZIP archives.", "pellumar");
    app.set_version_flag("--version", "pellumar " PELLUMAR_VERSION);
    app.require_subcommand(1);
    app.failure_message(describeMistake);
    addDocuments(app, workspace);
    addCommonOptions(app, line, "Options");
    addCreate(app, line, create);
    addExtract(app, line, extract);
    addList(app, line, list);
    addCat(app, line, cat);
    addTest(app, line, test);
    addSalvage(app, line, salvage);
    addZip(app, line, workspace);
    addUnzip(app, line, workspace);
    // Not before: the commands would inherit it.
    app.footer(
        "pellumar COMMAND --help tells more, with examples; the manual is pellumar(1).\n"
        "Returns 0 if all went well, 1 if not, 2 if called wrongly.");
    try {
        app.parse(guarded(count, arguments));
    } catch (const CLI::ParseError& outcome) {
        if (app.exit(outcome) != 0) {
            return tl::unexpected(kExitUsage);
        }
        return tl::unexpected(std::cout.flush() ? kExitSuccess : kExitFailure);
    }
    return line;
}

}  // namespace pellumar
