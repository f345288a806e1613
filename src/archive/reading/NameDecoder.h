#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "archive/base/Bytes.h"

namespace pellumar::archive {

// An entry's name as the central directory has it.
struct RawName {
    ByteView bytes{};
    bool utf8Flag = false;  // general purpose bit 11 (APPNOTE 4.4.4)
    ByteView extra{};       // the header's extra fields
};

// The name where the archive says what its letters are: by flag, or by a Unicode path field
// (version 1, CRC-32 of the header's name, name; APPNOTE 4.6.9). A view into either.
[[nodiscard]] std::optional<std::string_view> saidLetters(const RawName& name);

// Whether two readers that know the format would take the name for two different ones: several
// Unicode path fields that are not the same, or one that says otherwise than a name whose letters
// are known without it.
[[nodiscard]] bool isAmbiguous(const RawName& name);

struct DecodedName {
    // UTF-8, of whatever the bytes say: separators and NUL bytes are kept. A view into the name or
    // into the storage.
    std::string_view text;
    bool legacy = false;  // the letters come from the vote
};

// Finds out which letters the names of one archive mean:
//  - UTF-8 where the flag says so;
//  - the Unicode path field (0x7075, APPNOTE 4.6.9) where its checksum is that of the name;
//  - UTF-8 where the bytes are well-formed UTF-8, ASCII included;
//  - else one charset for all names that are left, elected over a sample of them. A name that
//    cannot be read in it is taken in code page 437, which can spell anything.
// A short name of two or three letters can be well-formed UTF-8 by accident. Beside names that are
// not UTF-8 it is read in their charset if that makes a plausible word of it.
//
// First every name is shown to consider(), then decide() is called once, then decode() as often as
// one likes. Memory is bounded however many names there are. Belongs to one thread.
class NameDecoder {
  public:
    NameDecoder();
    ~NameDecoder();
    NameDecoder(NameDecoder&&) noexcept;
    NameDecoder& operator=(NameDecoder&&) noexcept;
    NameDecoder(const NameDecoder&) = delete;
    NameDecoder& operator=(const NameDecoder&) = delete;

    void consider(const RawName& name);
    void decide();

    // Never fails: every sequence of bytes has a reading. Names that were not considered are
    // decoded all the same. `storage` takes the text where it is not the name as it stands.
    [[nodiscard]] DecodedName decode(const RawName& name, std::string& storage) const;

    // The elected charset as iconv calls it; empty if no name needed a vote.
    [[nodiscard]] std::string_view charset() const;

  private:
    class State;
    std::unique_ptr<State> state_;
};

}  // namespace pellumar::archive
