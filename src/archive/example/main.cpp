#include <iostream>
#include <string>
#include <vector>

#include "archive/Reader.h"
#include "archive/Writer.h"

// Puts files of the working folder into an archive, lists it, shows the first, and extracts all:
//
//     example FOLDER FILE...
//
// makes FOLDER/example.zip and FOLDER/out.

namespace archive = pellumar::archive;

namespace {

archive::Result<> pack(const std::filesystem::path& path, const std::vector<std::string>& files) {
    auto writer = archive::Writer::create(path, {.comment = "made by the example"});
    if (!writer) {
        return archive::passOn(writer);
    }
    std::vector<archive::NewEntry> entries;
    for (const std::string& file : files) {
        entries.push_back({.name = file, .content = archive::NewEntry::FromPath{.path = file}});
    }
    if (auto added = writer->addAll(entries); !added) {
        return added;
    }
    return writer->close();  // only now it is an archive
}

archive::Result<> list(const archive::Reader& reader) {
    for (const archive::Entry& entry : reader) {
        std::cout << entry.path << ": " << entry.uncompressedSize << " bytes in "
                  << entry.compressedSize << (entry.fault ? ", which cannot be taken out\n" : "\n");
    }
    auto first = reader.openEntry(0);
    if (!first) {
        return archive::passOn(first);
    }
    std::string text(8, ' ');
    const auto count = first->read({reinterpret_cast<std::uint8_t*>(text.data()), text.size()});
    if (!count) {
        return archive::Failure(count.error());
    }
    text.resize(*count);  // it may be shorter
    std::cout << "It begins with: " << text << '\n';
    return {};
}

archive::Result<> unpack(const archive::Reader& reader, const std::filesystem::path& to) {
    auto report = reader.extractAll(to, {.existing = archive::ExistingFiles::kOverwrite});
    if (!report) {
        return archive::passOn(report);
    }
    for (const archive::Warning& warning : report->warnings.kept()) {
        std::cout << warning.describe() << '\n';
    }
    return {};
}

archive::Result<> run(const std::filesystem::path& folder, const std::vector<std::string>& files) {
    const std::filesystem::path path = folder / "example.zip";
    if (auto packed = pack(path, files); !packed) {
        return packed;
    }
    auto reader = archive::Reader::open(path);
    if (!reader) {
        return archive::passOn(reader);
    }
    auto listed = list(*reader);
    return listed ? unpack(*reader, folder / "out") : listed;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::cerr << "usage: example FOLDER FILE...\n";
        return 2;
    }
    const archive::Result<> outcome = run(arguments[1], {arguments + 2, arguments + count});
    if (!outcome) {
        std::cerr << outcome.error().describe() << '\n';
        return 1;
    }
    return 0;
}
