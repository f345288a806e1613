#include "archive/reading/EntryTable.h"

#include <algorithm>
#include <cstring>

namespace pellumar::archive {

namespace {

constexpr std::size_t kBlockSize = 256UL * 1024;

}  // namespace

void EntryTable::expect(std::size_t entries, std::size_t textSize) {
    entries_.reserve(entries);
    if (textSize > freeInBlock_) {
        addBlock(textSize);
    }
}

std::string_view EntryTable::keep(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    if (text.size() > freeInBlock_) {
        addBlock(std::max(kBlockSize, text.size()));
    }
    char* const place = next_;
    std::memcpy(place, text.data(), text.size());
    next_ += text.size();
    freeInBlock_ -= text.size();
    return {place, text.size()};
}

bool EntryTable::isNameless(std::uint64_t localHeaderOffset) const {
    return std::find(nameless_.begin(), nameless_.end(), localHeaderOffset) != nameless_.end();
}

void EntryTable::addBlock(std::size_t size) {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    freeInBlock_ = size;
    next_ = blocks_.back().get();
}

}  // namespace pellumar::archive
