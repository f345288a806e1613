#include "cli/ListCommand.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "cli/ArchiveInput.h"
#include "cli/EntryLines.h"
#include "cli/HumanSize.h"
#include "cli/Output.h"

namespace pellumar {
namespace {

using archive::Entry;
using archive::EntryType;
using archive::Reader;
using Indices = std::span<const std::size_t>;

// Where a link leads, if that can be said without a password.
std::string targetOf(const Reader& reader, std::size_t index) {
    constexpr std::uint64_t kLongestTarget = 4096;
    const Entry& entry = reader[index];
    if (entry.type != EntryType::kSymbolicLink || entry.encrypted || entry.fault) {
        return {};
    }
    const auto target = reader.readEntry(index, {.limits = {.bytes = kLongestTarget}});
    return target ? std::string(target->begin(), target->end()) : std::string();
}

void printTable(const Reader& reader, Indices entries, Output& output) {
    std::uint64_t size = 0;
    std::uint64_t packed = 0;
    std::string line;
    LocalDays days;
    output.append(tableHeading());
    for (const std::size_t index : entries) {
        line.clear();
        appendTableLine(line, reader[index], targetOf(reader, index), days);
        output.append(line);
        size += reader[index].uncompressedSize;
        packed += reader[index].compressedSize;
    }
    output.append(humanCount(entries.size()) + ", " + std::to_string(size) + " bytes, " +
                  std::to_string(packed) + " packed\n");
}

void printNames(const Reader& reader, Indices entries, bool endWithNul, Output& output) {
    std::string name;
    for (const std::size_t index : entries) {
        name = reader[index].path;
        if (reader[index].type == EntryType::kFolder) {
            name += '/';
        }
        output.appendPath(name, endWithNul);
    }
}

void printJson(const Reader& reader, Indices entries, Output& output) {
    std::string line = "{\"comment\":";
    appendJsonString(line, reader.comment());
    line += ",\"entries\":[";
    const char* separator = "\n";
    for (const std::size_t index : entries) {
        line += separator;
        appendJsonObject(line, reader[index], targetOf(reader, index));
        output.append(line);
        line.clear();
        separator = ",\n";
    }
    output.append(line + "\n]}\n");
}

}  // namespace

int listArchive(const ListArguments& arguments, bool endWithNul, Messages& messages) {
    const auto input = ArchiveInput::open(arguments.archive, messages);
    if (!input) {
        return input.error();
    }
    const auto entries = input->select(arguments.names, ArchiveInput::Names::kWithAllBelow);
    if (!entries) {
        return entries.error();
    }
    Output output;
    switch (endWithNul ? ListForm::kNames : arguments.form) {
        case ListForm::kTable:
            printTable(input->reader(), *entries, output);
            break;
        case ListForm::kNames:
            printNames(input->reader(), *entries, endWithNul, output);
            break;
        case ListForm::kJson:
            printJson(input->reader(), *entries, output);
            break;
    }
    if (const std::string reason = output.finish(); !reason.empty()) {
        return messages.fail(reason);
    }
    if (const auto fault = input->reader().firstFault()) {
        messages.warn(input->name() + ": will not be extracted: " + fault->describe());
    }
    return kExitSuccess;
}

}  // namespace pellumar
