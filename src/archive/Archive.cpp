#include "archive/Archive.h"

#include <utility>

#include "archive/base/WithinMemory.h"
#include "archive/reading/ArchiveReader.h"
#include "archive/reading/EntryReader.h"
#include "archive/reading/Extraction.h"
#include "archive/writing/ArchiveWriter.h"

namespace pellumar::archive {

namespace {

Result<UnzipReport> unzip(const std::filesystem::path& at,
                          const std::filesystem::path& to,
                          bool skipCRC32,
                          const Password* password) {
    auto archive = ArchiveReader::open(at);
    if (!archive) {
        return passOn(archive);
    }
    auto extracted = extractAll(**archive, to, {.skipChecksum = skipCRC32, .password = password});
    if (!extracted) {
        return passOn(extracted);
    }
    UnzipReport report{.entries = extracted->entries,
                       .bytes = extracted->bytes,
                       .warnings = (*archive)->warnings()};
    report.warnings.add(extracted->warnings);
    return report;
}

}  // namespace

Archive::Archive(std::unique_ptr<ArchiveReader> reader) : reader_(std::move(reader)) {}
Archive::Archive(std::unique_ptr<ArchiveWriter> writer) : writer_(std::move(writer)) {}
Archive::Archive(Archive&&) noexcept = default;
Archive& Archive::operator=(Archive&&) noexcept = default;
Archive::~Archive() = default;

Result<Archive> Archive::open(const std::filesystem::path& path, AccessMode mode) {
    return withinMemory([&]() -> Result<Archive> {
        if (mode != AccessMode::kRead) {
            auto writer = ArchiveWriter::create(path,
                                                mode == AccessMode::kReplace
                                                    ? PendingFile::Existing::kReplace
                                                    : PendingFile::Existing::kRefuse);
            if (!writer) {
                return passOn(writer);
            }
            return Archive(std::move(*writer));
        }
        auto reader = ArchiveReader::open(path);
        if (!reader) {
            return passOn(reader);
        }
        return Archive(std::move(*reader));
    });
}

Result<> Archive::addEntry(const std::string& path,
                           const std::filesystem::path& base,
                           CompressionMethod /*method*/,
                           std::size_t bufferSize) {
    if (!writer_) {
        return failure(ErrorCode::kInvalidArgument);
    }
    return withinMemory(
        [&] { return writer_->addEntry({.path = path, .base = base}, bufferSize); });
}

void Archive::compressAhead(std::vector<EntrySource> next, std::size_t bufferSize) {
    if (writer_) {
        writer_->compressAhead(std::move(next), bufferSize);
    }
}

Result<> Archive::close() {
    return writer_ ? withinMemory([this] { return writer_->close(); }) : Result<>();
}

std::size_t Archive::size() const {
    return reader_ ? reader_->entries().size() : 0;
}

Entry Archive::operator[](std::size_t index) const {
    return reader_->entries()[index].entry;
}

Result<> Archive::checkPassword(const Password& password) const {
    return withinMemory([&]() -> Result<> {
        for (std::size_t i = 0; i < size(); ++i) {
            const EntryData& data = reader_->entries()[i];
            if (!data.encryption || data.entry.type == EntryType::kFolder) {
                continue;
            }
            auto entries = EntryReader::create(reader_->file(), &password);
            return entries ? (*entries)->checkPassword(data) : Result<>(passOn(entries));
        }
        return {};
    });
}

const Warnings& Archive::warnings() const {
    static const Warnings kNone;
    if (writer_) {
        return writer_->warnings();
    }
    return reader_ ? reader_->warnings() : kNone;
}

Result<UnzipReport> unzipItem(const std::filesystem::path& at,
                              const std::filesystem::path& to,
                              bool skipCRC32,
                              const Password* password) {
    return withinMemory([&] { return unzip(at, to, skipCRC32, password); });
}

}  // namespace pellumar::archive
