#include "archive/reading/EntryTable.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace pellumar::archive {

namespace {

constexpr std::size_t kBlockSize = 256UL * 1024;

// A path without its first components; empty if it has no more.
std::string_view stripped(std::string_view path, std::size_t components) {
    for (; components > 0 && !path.empty(); --components) {
        path.remove_prefix(std::min(path.find('/'), path.size() - 1) + 1);
    }
    return path;
}

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

void EntryTable::addFault(std::size_t index, ErrorCode code, std::uint64_t offset) {
    if (index != kNoEntry) {
        Entry& entry = entries_[index].entry;
        if (entry.fault) {
            return;
        }
        entry.fault = code;
        entries_[index].faultNumber = faults_.size();
    }
    faults_.push_back({.index = index, .code = code, .offset = offset});
}

Error EntryTable::errorOf(const Fault& fault) const {
    return {.code = fault.code,
            .entry = fault.index == kNoEntry ? "./" : std::string(entries_[fault.index].entry.path),
            .offset = fault.offset};
}

std::optional<Error> EntryTable::firstFault() const {
    return faults_.empty() ? std::nullopt : std::optional(errorOf(faults_.front()));
}

Error EntryTable::faultOf(std::size_t index) const {
    return errorOf(faults_[entries_[index].faultNumber]);
}

EntryTable EntryTable::selected(std::span<const std::size_t> indices,
                                std::size_t stripComponents) const {
    std::vector<std::size_t> order(indices.begin(), indices.end());
    std::sort(order.begin(), order.end());
    order.erase(std::unique(order.begin(), order.end()), order.end());
    EntryTable table;
    table.nameless_ = nameless_;
    table.sections_ = sections_;
    for (const std::size_t index : order) {
        EntryData data = entries_[index];
        if (!data.entry.fault || data.entry.fault != ErrorCode::kUnsafeName) {
            data.entry.path = stripped(data.entry.path, stripComponents);
        }
        if (data.entry.path.empty()) {
            continue;
        }
        const auto fault = std::exchange(data.entry.fault, std::nullopt);
        table.add(data);
        if (fault) {
            // The first is the one that is told.
            const bool first = table.faults_.empty();
            table.addFault(table.size() - 1,
                           *fault,
                           first ? faultOf(index).offset : data.entry.localHeaderOffset);
        }
    }
    return table;
}

bool EntryTable::isNameless(std::uint64_t localHeaderOffset) const {
    return nameless_.count(localHeaderOffset) != 0;
}

void EntryTable::addSections(std::uint64_t localHeaderOffset, ByteView field) {
    if (sections_.count(localHeaderOffset) == 0) {
        sections_.emplace(localHeaderOffset, keep(asText(field)));
    }
}

ByteView EntryTable::sectionsOf(const EntryData& data) const {
    const auto found = sections_.find(data.entry.localHeaderOffset);
    return found == sections_.end() ? ByteView() : asBytes(found->second);
}

void EntryTable::addBlock(std::size_t size) {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
    freeInBlock_ = size;
    next_ = blocks_.back().get();
}

}  // namespace pellumar::archive
