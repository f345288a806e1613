#include "archive/reading/DataMeasure.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "archive/base/Crc32.h"
#include "archive/codecs/Decoder.h"
#include "archive/format/LocalFileHeader.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {

namespace {

using namespace format;

constexpr std::size_t kPiece = 64UL * 1024;

}  // namespace

DataMeasure::DataMeasure(const ByteSource& source,
                         std::uint64_t mostUncompressed,
                         std::stop_token stop)
    : source_(source),
      mostUncompressed_(mostUncompressed),
      stop_(std::move(stop)),
      input_(std::make_unique_for_overwrite<std::uint8_t[]>(kPiece)),
      output_(std::make_unique_for_overwrite<std::uint8_t[]>(kPiece)) {}

Result<DataMeasures> DataMeasure::measure(std::uint64_t offset,
                                          std::uint16_t method,
                                          bool encrypted,
                                          std::uint64_t said) {
    bytesRead_ = 0;
    if (said > 0) {
        if (const auto described = descriptorAt(offset + said, said)) {
            return *described;
        }
    }
    if (!encrypted && knowsItsEnd(method)) {
        return decode(offset, method);
    }
    return search(offset, !encrypted && method == kMethodStored);
}

Result<ByteView> DataMeasure::next(std::uint64_t offset) {
    if (stop_.stop_requested()) {
        return failure(ErrorCode::kCancelled);
    }
    const MutableBytes buffer(input_.get(), kPiece);
    auto read = source_.readAt(offset, buffer);
    if (!read) {
        return passOn(read);
    }
    bytesRead_ += *read;
    return buffer.first(*read);
}

Result<DataMeasures> DataMeasure::decode(std::uint64_t offset, std::uint16_t method) {
    auto decoder = makeDecoder(
        {.method = method, .uncompressedSize = std::numeric_limits<std::uint64_t>::max()});
    if (!decoder) {
        return passOn(decoder);
    }
    DataMeasures measures{.crc32 = kCrc32OfNothing};
    ByteView input;
    const MutableBytes output(output_.get(), kPiece);
    for (bool finished = false; !finished;) {
        if (input.empty()) {
            auto read = next(offset + measures.compressedSize);
            if (!read) {
                return passOn(read);
            }
            input = *read;
        }
        auto step = (*decoder)->decode(input, output);
        if (!step) {
            return passOn(step);
        }
        finished = step->finished;
        if (!finished && step->consumed == 0 && step->produced == 0) {
            return failure(input.empty() ? ErrorCode::kTruncated : ErrorCode::kDamagedData);
        }
        input = input.subspan(step->consumed);
        measures.compressedSize += step->consumed;
        measures.uncompressedSize += step->produced;
        measures.crc32 = crc32(measures.crc32, output.first(step->produced));
        if (measures.uncompressedSize > mostUncompressed_) {
            return failure(ErrorCode::kTooLarge);
        }
    }
    if (auto right = checkDescriptor(offset + measures.compressedSize, measures); !right) {
        return passOn(right);
    }
    return measures;
}

Result<> DataMeasure::checkDescriptor(std::uint64_t offset, const DataMeasures& measures) const {
    std::array<std::uint8_t, kLongestDataDescriptor> buffer{};
    auto read = source_.readAt(offset, buffer);
    if (!read) {
        return passOn(read);
    }
    const ByteView bytes = ByteView(buffer).first(*read);
    if (matchesDataDescriptor(
            bytes, measures.crc32, measures.compressedSize, measures.uncompressedSize)) {
        return {};
    }
    return failure(bytes.size() < kLongestDataDescriptor ? ErrorCode::kTruncated
                                                         : ErrorCode::kHeaderMismatch);
}

std::optional<DataMeasures> DataMeasure::descriptorAt(std::uint64_t offset,
                                                      std::uint64_t before) const {
    std::array<std::uint8_t, kLongestDataDescriptor> bytes{};
    const auto read = source_.readAt(offset, bytes);
    if (!read || loadLittleEndian<std::uint32_t>(bytes) != kDataDescriptorSignature) {
        return std::nullopt;
    }
    constexpr std::size_t kCrc = sizeof(std::uint32_t);  // behind the signature
    constexpr std::size_t kSizes = 2 * sizeof(std::uint32_t);
    DataMeasures measures{.crc32 = loadLittleEndian<std::uint32_t>(bytes, kCrc),
                          .compressedSize = before};
    if (*read >= kSizes + 2 * sizeof(std::uint32_t) &&
        loadLittleEndian<std::uint32_t>(bytes, kSizes) == before) {
        measures.uncompressedSize =
            loadLittleEndian<std::uint32_t>(bytes, kSizes + sizeof(std::uint32_t));
        // Else it is the upper half of a size of 64 bits.
        if (measures.uncompressedSize > 0 || before == 0) {
            return measures;
        }
    }
    if (*read >= kSizes + 2 * sizeof(std::uint64_t) &&
        loadLittleEndian<std::uint64_t>(bytes, kSizes) == before) {
        measures.uncompressedSize =
            loadLittleEndian<std::uint64_t>(bytes, kSizes + sizeof(std::uint64_t));
        return measures;
    }
    return std::nullopt;
}

// Goes on behind each signature that is none, so that every byte is looked at once.
Result<DataMeasures> DataMeasure::search(std::uint64_t offset, bool checksummed) {
    std::array<std::uint8_t, sizeof(std::uint32_t)> signature{};
    storeLittleEndian(MutableBytes(signature), 0, kDataDescriptorSignature);
    std::uint64_t before = 0;
    std::uint32_t checksum = kCrc32OfNothing;
    while (true) {
        auto piece = next(offset + before);
        if (!piece) {
            return passOn(piece);
        }
        if (piece->size() < signature.size()) {
            return failure(ErrorCode::kTruncated);
        }
        // All but what could be the beginning of a signature across the edge.
        const ByteView all = *piece;
        const std::size_t last = all.size() - (signature.size() - 1);
        for (std::size_t at = 0; at < last;) {
            const auto found = std::search(all.begin() + static_cast<std::ptrdiff_t>(at),
                                           all.end(),
                                           signature.begin(),
                                           signature.end());
            const auto end = std::min(last, static_cast<std::size_t>(found - all.begin()));
            checksum = checksummed ? crc32(checksum, all.subspan(at, end - at)) : checksum;
            before += end - at;
            at = end;
            if (found == all.end()) {
                break;
            }
            const auto described = descriptorAt(offset + before, before);
            if (described && (!checksummed || described->crc32 == checksum)) {
                return *described;
            }
            checksum = checksummed ? crc32(checksum, all.subspan(at, 1)) : checksum;
            ++before;
            ++at;
        }
    }
}

}  // namespace pellumar::archive
