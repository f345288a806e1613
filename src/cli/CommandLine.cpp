#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string_view>
#include <utility>

namespace pellumar {
namespace {

std::string mayNotBeEmpty(const std::string& value) {
    return value.empty() ? "must not be empty" : "";
}

// The title becomes the name of a file in the workspace; a path would lead out of it, to an archive
// that would be deleted first.
// The job deletes what stands in the archive's place first, so that must be in the workspace.
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

std::string describeMistake(const CLI::App* /*app*/, const CLI::Error& mistake) {
    return std::string("pellumar: ") + mistake.what() +
           "\nRun pellumar --help for more information.\n";
}

void addZip(CLI::App& app, CommandLine& line) {
    CLI::App* zip = app.add_subcommand("zip", "Make an archive in the workspace");
    zip->fallthrough();
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
    CLI::App* unzip = app.add_subcommand("unzip", "Extract an archive into the workspace");
    unzip->fallthrough();
    unzip->callback([&line] { line.operation = OperationType::kUnzip; });
    unzip->add_option("ARCHIVE", line.archive, "A ZIP archive")
        ->required()
        ->check(mayNotBeEmpty)
        ->option_text(" ");
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
