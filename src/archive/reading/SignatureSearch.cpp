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
    std::array<std::uint8_t, sizeof signature> wanted{};
    storeLittleEndian(wanted, 0, signature);
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
    constexpr std::uint64_t kSearched = 64UL * 1024;
    end = std::min(end, start + kSearched);
    while (true) {
        auto found = findSignature(file, kLocalFileHeaderSignature, start, end);
        if (!found || !*found || end - **found < kLocalFileHeaderSize) {
            return found ? std::optional<std::uint64_t>() : std::move(found);
        }
        std::array<std::uint8_t, kLocalFileHeaderSize> header{};
        if (auto read = file.readExactlyAt(**found, header); !read) {
            return passOn(read);
        }
        if (looksLikeLocalHeader(header)) {
            return *found;
        }
        start = **found + 1;
    }
}

}  // namespace pellumar::archive
