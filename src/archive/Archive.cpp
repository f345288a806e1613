#include "archive/Archive.h"

#include <utility>

#include "archive/Reader.h"
#include "archive/base/WithinMemory.h"
#include "archive/writing/ArchiveWriter.h"

namespace pellumar::archive {

namespace {

ArchiveWriter::Source sourceOf(const EntrySource& source,
                               const std::shared_ptr<const Password>& password) {
    ArchiveWriter::Source made(source.path, source.base / source.path);
    made.options.password = password;
    return made;
}

}  // namespace

Archive::Archive(std::unique_ptr<ArchiveWriter> writer, std::shared_ptr<const Password> password)
    : writer_(std::move(writer)), password_(std::move(password)) {}
Archive::Archive(Archive&&) noexcept = default;
Archive& Archive::operator=(Archive&&) noexcept = default;
Archive::~Archive() = default;

Result<Archive> Archive::open(const std::filesystem::path& path,
                              AccessMode mode,
                              std::shared_ptr<const Password> password,
                              std::stop_token stop) {
    return withinMemory([&]() -> Result<Archive> {
        auto writer =
            ArchiveWriter::create(path,
                                  mode == AccessMode::kReplace ? PendingFile::Existing::kReplace
                                                               : PendingFile::Existing::kRefuse,
                                  {.stop = std::move(stop)});
        if (!writer) {
            return passOn(writer);
        }
        return Archive(std::move(*writer), std::move(password));
    });
}

Result<> Archive::addEntry(const std::string& path,
                           const std::filesystem::path& base,
                           CompressionMethod /*method*/,
                           std::size_t bufferSize) {
    return withinMemory([&] {
        return writer_->addEntry(sourceOf({.path = path, .base = base}, password_), bufferSize);
    });
}

void Archive::compressAhead(const std::vector<EntrySource>& next, std::size_t bufferSize) {
    // Without memory for that nothing is done ahead.
    static_cast<void>(withinMemory([&]() -> Result<> {
        std::vector<ArchiveWriter::Source> sources;
        sources.reserve(next.size());
        for (const EntrySource& source : next) {
            sources.push_back(sourceOf(source, password_));
        }
        writer_->compressAhead(std::move(sources), bufferSize);
        return {};
    }));
}

Result<> Archive::close() {
    return withinMemory([this] { return writer_->close(); });
}

const Warnings& Archive::warnings() const {
    return writer_->warnings();
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
