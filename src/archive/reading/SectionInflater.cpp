#include "archive/reading/SectionInflater.h"

#include <algorithm>

#include "archive/base/Crc32.h"
#include "archive/base/DataSink.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kRead = 128UL * 1024;

}  // namespace

SectionInflater::SectionInflater(const ByteSource& file)
    : file_(file),
      input_(std::make_unique_for_overwrite<std::uint8_t[]>(kRead)),
      output_(std::make_unique_for_overwrite<std::uint8_t[]>(kStreamedPiece)) {}

Result<std::uint32_t> SectionInflater::inflate(std::uint64_t dataOffset,
                                               const format::Section& section,
                                               bool last,
                                               const Place& place) {
    if (auto ready = decoder_.reset(); !ready) {
        return passOn(ready);
    }
    std::uint64_t read = 0;
    std::uint64_t produced = 0;
    std::uint32_t checksum = kCrc32OfNothing;
    ByteView input;
    for (;;) {
        if (input.empty() && read < section.dataSize) {
            const MutableBytes piece(
                input_.get(),
                static_cast<std::size_t>(std::min<std::uint64_t>(kRead, section.dataSize - read)));
            const std::uint64_t offset = dataOffset + section.dataStart + read;
            if (auto filled = file_.readExactlyAt(offset, piece); !filled) {
                return passOn(filled);
            }
            read += piece.size();
            input = piece;
        }
        const MutableBytes output(output_.get(), kStreamedPiece);
        auto step = decoder_.decode(input, output);
        if (!step) {
            return passOn(step);
        }
        input = input.subspan(step->consumed);
        if (step->produced > section.contentSize - produced) {
            return failure(ErrorCode::kDamagedData);
        }
        if (step->produced > 0) {
            const ByteView bytes = output.first(step->produced);
            checksum = crc32(checksum, bytes);
            if (auto taken = place(section.contentStart + produced, bytes); !taken) {
                return passOn(taken);
            }
            produced += step->produced;
        }
        if (step->consumed == 0 && step->produced == 0) {
            break;
        }
    }
    const bool atEnd = last ? decoder_.isFinished() : decoder_.isBetweenBlocks();
    return input.empty() && read == section.dataSize && produced == section.contentSize && atEnd
               ? Result<std::uint32_t>(checksum)
               : failure(ErrorCode::kDamagedData);
}

}  // namespace pellumar::archive
