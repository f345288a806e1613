#include <iostream>
#include <string>
#include <vector>

#include "archive/Archive.h"
#include "archive/Reader.h"

// Puts files of the working folder into an archive, lists it, and extracts it again:
//
//     pellumar_archive_example FOLDER FILE...
//
// makes FOLDER/example.zip and FOLDER/out.

namespace archive = pellumar::archive;

namespace {

archive::Result<> pack(const std::filesystem::path& path, const std::vector<std::string>& files) {
    auto made = archive::Archive::open(path, archive::AccessMode::kCreate);
    if (!made) {
        return archive::passOn(made);
    }
    std::vector<archive::EntrySource> sources;
    sources.reserve(files.size());
    for (const std::string& file : files) {
        sources.push_back({.path = file, .base = "."});
    }
    made->compressAhead(sources);  // so that all processors have work, whatever the order
    for (const archive::EntrySource& source : sources) {
        auto added = made->addEntry(source.path, source.base, archive::CompressionMethod::kDeflate);
        if (!added) {
            return added;
        }
    }
    return made->close();  // only now it is an archive
}

archive::Result<> list(const std::filesystem::path& path) {
    auto opened = archive::Reader::open(path);
    if (!opened) {
        return archive::passOn(opened);
    }
    for (const archive::Entry& entry : *opened) {
        std::cout << entry.path << ": " << entry.uncompressedSize << " bytes in "
                  << entry.compressedSize << '\n';
    }
    return {};
}

archive::Result<> unpack(const std::filesystem::path& path, const std::filesystem::path& to) {
    auto report = archive::unzipItem(path, to);
    if (!report) {
        return archive::passOn(report);
    }
    for (const archive::Warning& warning : report->warnings.kept()) {
        std::cout << describe(warning.code) << ": " << warning.entry << '\n';
    }
    return {};
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::cerr << "usage: pellumar_archive_example FOLDER FILE...\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    const std::filesystem::path path = folder / "example.zip";
    auto outcome = pack(path, {arguments + 2, arguments + count});
    if (outcome) {
        outcome = list(path);
    }
    if (outcome) {
        outcome = unpack(path, folder / "out");
    }
    if (!outcome) {
        std::cerr << outcome.error().describe() << '\n';
        return 1;
    }
    return 0;
}
