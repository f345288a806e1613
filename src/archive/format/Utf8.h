#pragma once

#include <string_view>

namespace pellumar::archive::format {

// Whether all of `text` is ASCII.
[[nodiscard]] bool isAscii(std::string_view text);

// Whether `text` is well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates, nothing above
// U+10FFFF.
[[nodiscard]] bool isUtf8(std::string_view text);

}  // namespace pellumar::archive::format
