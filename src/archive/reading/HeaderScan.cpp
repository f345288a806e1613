#include "archive/reading/HeaderScan.h"

#include <string.h>

#include <algorithm>

#include "archive/format/ZipFormat.h"
#include "archive/reading/SignatureSearch.h"

namespace pellumar::archive {

namespace {

using namespace format;

constexpr std::size_t kWindow = 256UL * 1024;
// How far a search goes on behind what cannot be read: a block of most disks.
constexpr std::uint64_t kUnreadable = 4096;

}  // namespace

HeaderScan::HeaderScan(const ByteSource& source)
    : source_(source), window_(std::make_unique_for_overwrite<std::uint8_t[]>(kWindow)) {}

ByteView HeaderScan::at(std::uint64_t offset, std::size_t size) {
    const bool holds =
        offset >= start_ && offset - start_ <= size_ && size_ - (offset - start_) >= size;
    if (!holds) {
        const auto read = source_.readAt(offset, MutableBytes(window_.get(), kWindow));
        start_ = offset;
        size_ = read ? *read : 0;
    }
    return ByteView(window_.get(), size_).subspan(static_cast<std::size_t>(offset - start_));
}

std::optional<std::uint64_t> HeaderScan::next(std::uint64_t from, std::uint64_t until) {
    std::uint32_t signature = 0;
    storeLittleEndian(MutableBytes(reinterpret_cast<std::uint8_t*>(&signature), sizeof signature),
                      0,
                      kLocalFileHeaderSignature);
    until = std::min(until, source_.size());
    while (from < until && until - from >= kLocalFileHeaderSize) {
        const ByteView bytes = at(from, kLocalFileHeaderSize);
        if (bytes.size() < kLocalFileHeaderSize) {
            from += kUnreadable;
            continue;
        }
        const void* const found =
            ::memmem(bytes.data(), bytes.size(), &signature, sizeof signature);
        if (found == nullptr) {
            // It may lie across the window's edge.
            from += bytes.size() - (sizeof signature - 1);
            continue;
        }
        from += static_cast<std::uint64_t>(static_cast<const std::uint8_t*>(found) - bytes.data());
        const ByteView header = at(from, kLocalFileHeaderSize);
        if (header.size() >= kLocalFileHeaderSize && from < until &&
            until - from >= kLocalFileHeaderSize && looksLikeLocalHeader(header)) {
            return from;
        }
        ++from;
    }
    return std::nullopt;
}

bool HeaderScan::isRecord(std::uint64_t offset) {
    const ByteView bytes = offset < source_.size() ? at(offset, sizeof(std::uint32_t)) : ByteView();
    if (bytes.size() < sizeof(std::uint32_t)) {
        return false;
    }
    switch (loadLittleEndian<std::uint32_t>(bytes)) {
        case kLocalFileHeaderSignature:
        case kDataDescriptorSignature:
        case kCentralDirectoryHeaderSignature:
        case kEndOfCentralDirectorySignature:
            return true;
        default:
            return false;
    }
}

}  // namespace pellumar::archive
