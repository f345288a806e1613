#include "archive/Archive.h"

#include <utility>

#include "archive/Reader.h"
#include "archive/base/WithinMemory.h"

namespace pellumar::archive {

Archive::Archive(Writer writer, std::shared_ptr<const Password> password)
    : writer_(std::move(writer)), password_(std::move(password)) {}

Result<Archive> Archive::open(const std::filesystem::path& path,
                              AccessMode mode,
                              std::shared_ptr<const Password> password,
                              WriterOptions options) {
    options.replace = mode == AccessMode::kReplace;
    options.sameNames = SameNames::kKeep;
    auto writer = Writer::create(path, std::move(options));
    return writer ? Result<Archive>(Archive(*std::move(writer), std::move(password)))
                  : passOn(writer);
}

NewEntry Archive::entryOf(const EntrySource& source, std::size_t bufferSize) const {
    return {
        .name = source.path,
        .content = NewEntry::FromPath{.path = source.base / source.path, .readSize = bufferSize},
        .options = {.password = password_}};
}

Result<> Archive::addEntry(const std::string& path,
                           const std::filesystem::path& base,
                           CompressionMethod /*method*/,
                           std::size_t bufferSize) {
    return withinMemory(
        [&] { return writer_.add(entryOf({.path = path, .base = base}, bufferSize)); });
}

Result<> Archive::addAll(const std::vector<EntrySource>& sources,
                         CompressionMethod /*method*/,
                         std::size_t bufferSize,
                         const Writer::AfterEach& afterEach) {
    return withinMemory([&] {
        std::vector<NewEntry> entries;
        entries.reserve(sources.size());
        for (const EntrySource& source : sources) {
            entries.push_back(entryOf(source, bufferSize));
        }
        return writer_.addAll(entries, afterEach);
    });
}

Result<> Archive::close() {
    return writer_.close();
}

const Warnings& Archive::warnings() const {
    return writer_.warnings();
}

Result<UnzipReport> unzipItem(const Reader& archive,
                              const std::filesystem::path& to,
                              const ExtractionOptions& options) {
    return withinMemory([&] {
        auto report = archive.extractAll(to, options);
        if (report) {
            Warnings warnings = archive.warnings();
            warnings.add(report->warnings);
            report->warnings = std::move(warnings);
        }
        return report;
    });
}

Result<UnzipReport> unzipItem(const std::filesystem::path& at,
                              const std::filesystem::path& to,
                              bool skipCRC32,
                              const Password* password) {
    auto archive = Reader::open(at);
    return archive ? unzipItem(*archive, to, {.password = password, .skipChecksum = skipCRC32})
                   : Result<UnzipReport>(passOn(archive));
}

}  // namespace pellumar::archive
