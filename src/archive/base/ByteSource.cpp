#include "archive/base/ByteSource.h"

#include <sys/stat.h>

#include <algorithm>

namespace pellumar::archive {

Result<> ByteSource::readExactlyAt(std::uint64_t offset, MutableBytes buffer) const {
    auto count = readAt(offset, buffer);
    if (!count) {
        return passOn(count);
    }
    if (*count < buffer.size()) {
        return failure(ErrorCode::kTruncated, offset);
    }
    return {};
}

Result<std::unique_ptr<FileSource>> FileSource::of(File file) {
    auto status = file.status();
    if (!status) {
        return passOn(status);
    }
    if (!S_ISREG(status->st_mode)) {
        return failure(ErrorCode::kNotAnArchive);
    }
    return std::unique_ptr<FileSource>(
        new FileSource(std::move(file), static_cast<std::uint64_t>(status->st_size)));
}

Result<std::size_t> MemorySource::readAt(std::uint64_t offset, MutableBytes buffer) const {
    const auto start = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes_.size()));
    const ByteView part = bytes_.subspan(start, std::min(buffer.size(), bytes_.size() - start));
    std::copy(part.begin(), part.end(), buffer.begin());
    return part.size();
}

}  // namespace pellumar::archive
