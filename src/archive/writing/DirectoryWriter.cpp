#include "archive/writing/DirectoryWriter.h"

#include <algorithm>

#include "archive/format/EndOfCentralDirectory.h"

namespace pellumar::archive {

namespace {

constexpr std::size_t kBlockSize = 64UL * 1024;

}  // namespace

void DirectoryWriter::add(const format::EntryRecord& record) {
    std::vector<std::uint8_t> header;
    format::appendCentralDirectoryHeader(header, record);
    if (blocks_.empty() || blocks_.back().size() + header.size() > blocks_.back().capacity()) {
        blocks_.emplace_back().reserve(std::max(kBlockSize, header.size()));
    }
    blocks_.back().insert(blocks_.back().end(), header.begin(), header.end());
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
