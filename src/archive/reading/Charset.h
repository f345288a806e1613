#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "archive/base/Bytes.h"

// The charsets that names without UTF-8 come in, and their conversion.
namespace pellumar::archive {

enum class Charset : std::uint8_t {
    kShiftJis,
    kGbk,
    kBig5,
    kEucKr,
    kCodePage866,
    kCodePage1251,
    kCodePage437,  // what the format means by a name without the UTF-8 flag (APPNOTE D.1)
};

inline constexpr std::array kAllCharsets = {Charset::kShiftJis,
                                            Charset::kGbk,
                                            Charset::kBig5,
                                            Charset::kEucKr,
                                            Charset::kCodePage866,
                                            Charset::kCodePage1251,
                                            Charset::kCodePage437};

// As iconv calls it; of each family the superset that Windows and macOS write.
[[nodiscard]] const char* nameOf(Charset charset);

// Reads text in one charset. Code page 437 can spell any byte; the others meet bytes that mean
// nothing, and on a system without the charset's tables all bytes above ASCII are such. Belongs to
// one thread.
class CharsetConverter {
  public:
    explicit CharsetConverter(Charset from);
    // One that no vote knows, as iconv calls it.
    explicit CharsetConverter(const char* from);
    ~CharsetConverter();
    CharsetConverter(const CharsetConverter&) = delete;
    CharsetConverter& operator=(const CharsetConverter&) = delete;

    // The code points of the whole text, or nothing if any byte has no meaning.
    [[nodiscard]] std::optional<std::u32string> decode(ByteView text);

  private:
    bool isCodePage437_;
    void* handle_;  // of iconv; none for code page 437
};

[[nodiscard]] std::string toUtf8(std::u32string_view text);

}  // namespace pellumar::archive
