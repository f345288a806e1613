#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <vector>

#include "archive/base/Bytes.h"
#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/codecs/Decryptor.h"

namespace pellumar::archive {

// What is remembered of each entry of an archive that is read: about 140 bytes and its name.
struct EntryData {
    Entry entry;
    // The name as it stands in the central directory, to hold the local header's against.
    std::string_view rawName;
    // Where the next entry or the directory begins: no byte of this entry's lies behind.
    std::uint64_t slotEnd = 0;
    std::uint16_t flags = 0;
    Encryption encryption;
    // If it has a fault: which of those that the table remembers.
    std::size_t faultNumber = 0;
    // Where the entry is, is not known: it has a fault, and no slot.
    bool placeless = false;
    bool namedAsFolder = false;
    // The sizes may be the lower 32 bits of the true ones: the archive has no ZIP64 records.
    bool sizesMayBeCut = false;
    bool specialFile = false;
    bool setIdBits = false;
    bool legacyName = false;
};

// The entries of an archive in the order of the central directory, with their names. Grows as they
// are added; what an archive claims of itself makes nothing larger.
class EntryTable {
  public:
    // Makes room for so many entries and the text of their names. More of both may come.
    void expect(std::size_t entries, std::size_t textSize);

    // Keeps a copy of `text` for as long as the table lives.
    std::string_view keep(std::string_view text);

    void add(const EntryData& data) { entries_.push_back(data); }

    // Remembers that an entry of the folder itself ("./") has its local header there; it has no
    // place in the table.
    void addNameless(std::uint64_t localHeaderOffset) { nameless_.insert(localHeaderOffset); }
    [[nodiscard]] bool isNameless(std::uint64_t localHeaderOffset) const;

    // Keeps what the entry whose local header is there says of its sections; of those that claim
    // one place the first.
    void addSections(std::uint64_t localHeaderOffset, ByteView field);
    // That field; empty without one. Lives as long as the table.
    [[nodiscard]] ByteView sectionsOf(const EntryData& data) const;

    // Remembers what is wrong with the entry at `index`, at that offset of the file; of several
    // faults of one entry the first. At kNoEntry it is one of the folder itself.
    void addFault(std::size_t index, ErrorCode code, std::uint64_t offset);
    static constexpr std::size_t kNoEntry = static_cast<std::size_t>(-1);
    // The fault that was found first, of those entries and of the folder itself.
    [[nodiscard]] std::optional<Error> firstFault() const;
    // That of an entry that has one.
    [[nodiscard]] Error faultOf(std::size_t index) const;

    // A table of the entries at these indices, each in the directory's order and once, whose paths
    // have lost so many leading components; without those that have no more. It lives no longer
    // than this one.
    [[nodiscard]] EntryTable selected(std::span<const std::size_t> indices,
                                      std::size_t stripComponents) const;

    [[nodiscard]] std::size_t size() const { return entries_.size(); }
    [[nodiscard]] const EntryData& operator[](std::size_t index) const { return entries_[index]; }
    [[nodiscard]] EntryData& operator[](std::size_t index) { return entries_[index]; }

  private:
    struct Fault {
        std::size_t index = 0;
        ErrorCode code = ErrorCode::kInvalidArgument;
        std::uint64_t offset = 0;
    };

    void addBlock(std::size_t size);
    [[nodiscard]] Error errorOf(const Fault& fault) const;

    std::vector<EntryData> entries_;
    std::vector<Fault> faults_;
    std::set<std::uint64_t> nameless_;
    std::map<std::uint64_t, std::string_view> sections_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t freeInBlock_ = 0;
    char* next_ = nullptr;
};

}  // namespace pellumar::archive
