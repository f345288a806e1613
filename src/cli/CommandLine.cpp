#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
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
        if (argument.starts_with('[') || (onlyNames && argument.starts_with('-'))) {
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

// The parser's own words do for mistakes within a command.
std::string wordsFor(const CLI::App& app, const CLI::Error& mistake) {
    if (!app.get_subcommands().empty()) {
        return mistake.what();
    }
    const std::vector<std::string> unknown = app.remaining();
    if (unknown.empty()) {
        return mistake.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError)
                   ? "a command is missing: zip or unzip"
                   : mistake.what();
    }
    if (unknown.front().starts_with('-')) {
        return "unknown option: " + printable(unknown.front());
    }
    return "unknown command: " + printable(unknown.front()) + "; there are zip and unzip";
}

std::string describeMistake(const CLI::App* app, const CLI::Error& mistake) {
    return "pellumar: " + wordsFor(*app, mistake) + "\nRun pellumar --help for more information.\n";
}

// A command, whose help tells the options of the program too.
CLI::App* addCommand(CLI::App& app, const std::string& name, const std::string& description) {
    CLI::App* command = app.add_subcommand(name, description);
    command->fallthrough();
    command->footer([&app] {
        const auto common = [](const CLI::Option* option) {
            return option->get_lnames().front() != "help" &&
                   option->get_lnames().front() != "version";
        };
        return CLI::Formatter().make_group(
            "Options of every command", false, std::as_const(app).get_options(common));
    });
    return command;
}

void addZip(CLI::App& app, CommandLine& line) {
    CLI::App* zip = addCommand(app, "zip", "Make an archive in the workspace");
    zip->callback([&line] { line.operation = OperationType::kZip; });
    zip->add_option("TITLE", line.title, "Name of the archive, without \".zip\"")
        ->required()
        ->transform(withoutGuard)
        ->check(mustStayInside)
        ->option_text(" ");
    zip->add_option("FILE", line.files, "Files, each to become an entry under its own name")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text("...");
}

void addUnzip(CLI::App& app, CommandLine& line) {
    CLI::App* unzip = addCommand(app, "unzip", "Extract an archive into the workspace");
    unzip->callback([&line] { line.operation = OperationType::kUnzip; });
    unzip->add_option("ARCHIVE", line.archive, "A ZIP archive")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text(" ");
    unzip->add_option("--password-file", line.passwordFile, "File whose first line is the password")
        ->check(mayNotBeEmpty)
        ->option_text("FILE");
}

}  // namespace

tl::expected<CommandLine, int> CommandLine::parse(int count, const char* const* arguments) {
    CommandLine line;
    CLI::App app("Makes and extracts ZIP archives in a workspace, and prints where they are.",
                 "pellumar");
    app.set_version_flag("--version", "pellumar " PELLUMAR_VERSION);
    app.require_subcommand(1);
    app.failure_message(describeMistake);
    app.add_option("--documents", line.documents, "Folder in which the workspace is")
        ->check(mayNotBeEmpty)
        ->option_text("DIR");
    app.add_flag("-q,--quiet", line.quiet, "Print nothing but paths and errors");
    app.add_flag("-0,--null", line.endWithNul, "End each path with a NUL instead of a line end");
    addZip(app, line);
    addUnzip(app, line);
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
