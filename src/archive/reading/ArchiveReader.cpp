#include "archive/reading/ArchiveReader.h"

#include <sys/stat.h>

#include <utility>

#include "archive/reading/CentralDirectory.h"
#include "archive/reading/DirectoryLocator.h"

namespace pellumar::archive {

ArchiveReader::ArchiveReader(File file, EntryTable entries, Warnings warnings)
    : file_(std::move(file)), entries_(std::move(entries)), warnings_(std::move(warnings)) {}

Result<std::unique_ptr<ArchiveReader>> ArchiveReader::open(const std::filesystem::path& path) {
    auto file = File::openForReading(path);
    if (!file) {
        return passOn(file);
    }
    auto status = file->status();
    if (!status) {
        return passOn(status);
    }
    if (!S_ISREG(status->st_mode)) {
        return failure(ErrorCode::kNotAnArchive);
    }
    auto location = locateDirectory(*file);
    if (!location) {
        return passOn(location);
    }
    Warnings warnings;
    if (location->archiveStart > 0) {
        warnings.add(WarningCode::kBytesBeforeArchive, {}, location->archiveStart);
    }
    if (location->bytesAfter > 0) {
        warnings.add(WarningCode::kBytesAfterArchive, {}, location->offset + location->size);
    }
    auto entries = readCentralDirectory(*file, *location, warnings);
    if (!entries) {
        return passOn(entries);
    }
    return std::unique_ptr<ArchiveReader>(
        new ArchiveReader(std::move(*file), std::move(*entries), std::move(warnings)));
}

}  // namespace pellumar::archive
