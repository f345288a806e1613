#include "archive/reading/ArchiveReader.h"

#include <utility>

#include "archive/reading/CentralDirectory.h"
#include "archive/reading/DirectoryLocator.h"
#include "archive/reading/Volumes.h"

namespace pellumar::archive {

namespace {

Result<std::string> commentOf(const ByteSource& source, const DirectoryLocation& location) {
    std::string comment(location.commentSize, '\0');
    const MutableBytes bytes(reinterpret_cast<std::uint8_t*>(comment.data()), comment.size());
    if (auto read = source.readExactlyAt(location.commentOffset, bytes); !read) {
        return passOn(read);
    }
    return comment;
}

// Whether one volume of several looks like that by itself.
bool mayBeVolume(const Error& error) {
    return error.code == ErrorCode::kNotAnArchive || error.code == ErrorCode::kTruncated ||
           error.code == ErrorCode::kDamagedDirectory || error.code == ErrorCode::kMultipleDisks;
}

}  // namespace

ArchiveReader::ArchiveReader(std::unique_ptr<const ByteSource> source,
                             EntryTable entries,
                             Warnings warnings,
                             std::string comment)
    : source_(std::move(source)),
      entries_(std::move(entries)),
      warnings_(std::move(warnings)),
      comment_(std::move(comment)) {}

Result<std::unique_ptr<ArchiveReader>> ArchiveReader::open(const std::filesystem::path& path) {
    auto file = File::openForReading(path);
    if (!file) {
        return passOn(file);
    }
    auto source = FileSource::of(std::move(*file));
    if (!source) {
        return passOn(source);
    }
    auto opened = open(std::move(*source));
    if (opened || !mayBeVolume(opened.error())) {
        return opened;
    }
    auto volumes = openVolumes(path, opened.error());
    return volumes ? open(std::move(*volumes)) : passOn(volumes);
}

Result<std::unique_ptr<ArchiveReader>> ArchiveReader::open(
    std::unique_ptr<const ByteSource> source) {
    auto location = locateDirectory(*source);
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
    auto entries = readCentralDirectory(*source, *location, warnings);
    if (!entries) {
        return passOn(entries);
    }
    auto comment = commentOf(*source, *location);
    if (!comment) {
        return passOn(comment);
    }
    return std::unique_ptr<ArchiveReader>(new ArchiveReader(
        std::move(source), std::move(*entries), std::move(warnings), std::move(*comment)));
}

}  // namespace pellumar::archive
