#include "archive/writing/DirectoryWriter.h"

#include <algorithm>
#include <utility>

#include "archive/format/EndOfCentralDirectory.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kBlockSize = 64UL * 1024;

}  // namespace

void DirectoryWriter::reserve(const format::EntryRecord& record) {
    next_.clear();
    format::appendCentralDirectoryHeader(next_, record);
    if (blocks_.empty() || blocks_.back().size() + next_.size() > blocks_.back().capacity()) {
        std::vector<std::uint8_t> block;
        block.reserve(std::max(kBlockSize, next_.size()));
        blocks_.push_back(std::move(block));
    }
}

void DirectoryWriter::addReserved() {
    blocks_.back().insert(blocks_.back().end(), next_.begin(), next_.end());
    ++entries_;
}

Result<> DirectoryWriter::writeTo(ArchiveOutput& output, std::string_view comment) {
    const std::uint64_t start = output.position();
    for (std::vector<std::uint8_t>& block : blocks_) {
        if (auto result = output.append(block); !result) {
            return result;
        }
        block = {};
    }
    std::vector<std::uint8_t> end;
    format::appendEndOfCentralDirectory(end, entries_, start, output.position() - start, comment);
    blocks_.clear();
    entries_ = 0;
    return output.append(end);
}

}  // namespace pellumar::archive
