#include "archive/Archive.h"

#include <utility>

#include "archive/Reader.h"
#include "archive/base/WithinMemory.h"
#include "archive/writing/ArchiveWriter.h"

namespace pellumar::archive {

Archive::Archive(std::unique_ptr<ArchiveWriter> writer) : writer_(std::move(writer)) {}
Archive::Archive(Archive&&) noexcept = default;
Archive& Archive::operator=(Archive&&) noexcept = default;
Archive::~Archive() = default;

Result<Archive> Archive::open(const std::filesystem::path& path, AccessMode mode) {
    return withinMemory([&]() -> Result<Archive> {
        auto writer =
            ArchiveWriter::create(path,
                                  mode == AccessMode::kReplace ? PendingFile::Existing::kReplace
                                                               : PendingFile::Existing::kRefuse,
                                  {});
        if (!writer) {
            return passOn(writer);
        }
        return Archive(std::move(*writer));
    });
}

Result<> Archive::addEntry(const std::string& path,
                           const std::filesystem::path& base,
                           CompressionMethod /*method*/,
                           std::size_t bufferSize) {
    return withinMemory([&] {
        return writer_->addEntry(ArchiveWriter::Source({.path = path, .base = base}), bufferSize);
    });
}

void Archive::compressAhead(const std::vector<EntrySource>& next, std::size_t bufferSize) {
    std::vector<ArchiveWriter::Source> sources;
    sources.reserve(next.size());
    for (const EntrySource& source : next) {
        sources.emplace_back(source);
    }
    writer_->compressAhead(std::move(sources), bufferSize);
}

Result<> Archive::close() {
    return withinMemory([this] { return writer_->close(); });
}

const Warnings& Archive::warnings() const {
    return writer_->warnings();
}

Result<UnzipReport> unzipItem(const std::filesystem::path& at,
                              const std::filesystem::path& to,
                              bool skipCRC32,
                              const Password* password) {
    auto archive = Reader::open(at);
    if (!archive) {
        return passOn(archive);
    }
    auto report = archive->extractAll(to, {.password = password, .skipChecksum = skipCRC32});
    if (report) {
        Warnings warnings = archive->warnings();
        warnings.add(report->warnings);
        report->warnings = std::move(warnings);
    }
    return report;
}

}  // namespace pellumar::archive
