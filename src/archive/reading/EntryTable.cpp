#include "archive/reading/EntryTable.h"

#include <algorithm>
#include <cstring>

namespace pellumar::archive {

namespace {

constexpr std::size_t kBlockSize = 256UL * 1024;

}  // namespace

std::string_view EntryTable::keep(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    if (text.size() > freeInBlock_) {
        freeInBlock_ = std::max(kBlockSize, text.size());
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(freeInBlock_));
        next_ = blocks_.back().get();
    }
    char* const place = next_;
    std::memcpy(place, text.data(), text.size());
    next_ += text.size();
    freeInBlock_ -= text.size();
    return {place, text.size()};
}

}  // namespace pellumar::archive
