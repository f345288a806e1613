#include "archive/reading/SignatureSearch.h"

#include <algorithm>
#include <array>
#include <memory>

#include "archive/base/Bytes.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

using namespace format;

constexpr std::size_t kSearchPiece = 64UL * 1024;

// The bytes of a record's signature as they stand in a file.
std::array<std::uint8_t, sizeof(std::uint32_t)> bytesOf(std::uint32_t signature) {
    std::array<std::uint8_t, sizeof signature> bytes{};
    storeLittleEndian(bytes, 0, signature);
    return bytes;
}

}  // namespace

bool looksLikeLocalHeader(ByteView bytes) {
    constexpr std::uint16_t kHighestMethod = 99;
    constexpr std::uint8_t kHighestVersion = 63;
    constexpr std::size_t kUsualName = 4096;
    const auto nameSize = loadLittleEndian<std::uint16_t>(bytes, 26);
    return bytes[4] <= kHighestVersion &&
           loadLittleEndian<std::uint16_t>(bytes, 8) <= kHighestMethod && nameSize > 0 &&
           nameSize <= kUsualName;
}

Result<std::optional<std::uint64_t>> findSignature(const ByteSource& file,
                                                   std::uint32_t signature,
                                                   std::uint64_t start,
                                                   std::uint64_t end) {
    const auto wanted = bytesOf(signature);
    const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(kSearchPiece);
    while (start + wanted.size() <= end) {
        const MutableBytes piece(
            buffer.get(),
            static_cast<std::size_t>(std::min<std::uint64_t>(kSearchPiece, end - start)));
        if (auto read = file.readExactlyAt(start, piece); !read) {
            return passOn(read);
        }
        const auto found = std::search(piece.begin(), piece.end(), wanted.begin(), wanted.end());
        if (found != piece.end()) {
            return start + static_cast<std::uint64_t>(found - piece.begin());
        }
        // It may lie across the pieces' edge.
        start += piece.size() - (wanted.size() - 1);
    }
    return std::nullopt;
}

Result<std::optional<std::uint64_t>> findLocalHeader(const ByteSource& file,
                                                     std::uint64_t start,
                                                     std::uint64_t end) {
    // What was deleted stands where a gap begins; gaps may be gigabytes.
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(end - start, kSearchPiece));
    const auto buffer = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    const MutableBytes gap(buffer.get(), size);
    if (auto read = file.readExactlyAt(start, gap); !read) {
        return passOn(read);
    }
    const auto wanted = bytesOf(kLocalFileHeaderSignature);
    // All of it is looked at once, however many signatures there are.
    for (ByteView rest = gap; rest.size() >= kLocalFileHeaderSize;) {
        const auto found = std::search(rest.begin(), rest.end(), wanted.begin(), wanted.end());
        rest = rest.subspan(static_cast<std::size_t>(found - rest.begin()));
        if (rest.size() >= kLocalFileHeaderSize && looksLikeLocalHeader(rest)) {
            return start + (size - rest.size());
        }
        rest = rest.subspan(std::min<std::size_t>(1, rest.size()));
    }
    return std::nullopt;
}

}  // namespace pellumar::archive
