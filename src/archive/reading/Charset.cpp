#include "archive/reading/Charset.h"

#include <iconv.h>

#include <bit>
#include <cerrno>
#include <cstddef>
#include <new>

namespace pellumar::archive {

namespace {

// The upper half of code page 437.
constexpr std::u32string_view kCodePage437Letters =
    U"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    U"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(kCodePage437Letters.size() == 128);

constexpr const char* kCodePoints =
    std::endian::native == std::endian::little ? "UTF-32LE" : "UTF-32BE";

iconv_t noConversion() {
    return reinterpret_cast<iconv_t>(-1);  // NOLINT(performance-no-int-to-ptr): iconv's own way
}

// Nothing if the system does not know the charset. Without memory it may say the same, and the name
// would be read as another: so it is asked twice.
iconv_t openConversion(const char* from) {
    iconv_t handle = iconv_open(kCodePoints, from);
    if (handle == noConversion()) {
        handle = iconv_open(kCodePoints, from);
    }
    if (handle == noConversion() && errno == ENOMEM) {
        throw std::bad_alloc();
    }
    return handle;
}

std::u32string fromCodePage437(ByteView text) {
    std::u32string out;
    out.reserve(text.size());
    for (const std::uint8_t byte : text) {
        out.push_back(byte < 0x80 ? byte : kCodePage437Letters[byte - 0x80U]);
    }
    return out;
}

}  // namespace

const char* nameOf(Charset charset) {
    switch (charset) {
        case Charset::kShiftJis:
            return "CP932";
        case Charset::kGbk:
            return "GB18030";
        case Charset::kBig5:
            return "CP950";
        case Charset::kEucKr:
            return "CP949";
        case Charset::kCodePage866:
            return "CP866";
        case Charset::kCodePage1251:
            return "CP1251";
        case Charset::kCodePage437:
            return "CP437";
    }
    return "";
}

CharsetConverter::CharsetConverter(Charset from)
    : isCodePage437_(from == Charset::kCodePage437),
      handle_(isCodePage437_ ? noConversion() : openConversion(nameOf(from))) {}

CharsetConverter::CharsetConverter(const char* from)
    : isCodePage437_(false), handle_(openConversion(from)) {}

CharsetConverter::~CharsetConverter() {
    if (handle_ != noConversion()) {
        iconv_close(handle_);
    }
}

std::optional<std::u32string> CharsetConverter::decode(ByteView text) {
    if (isCodePage437_) {
        return fromCodePage437(text);
    }
    if (handle_ == noConversion()) {
        return std::nullopt;
    }
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    // No byte becomes more than one code point, except for a few of Big5's that become two.
    std::u32string out(text.size() + 1, U'\0');
    // iconv only reads through this pointer.
    char* input = const_cast<char*>(reinterpret_cast<const char*>(text.data()));
    std::size_t inputLeft = text.size();
    char* output = reinterpret_cast<char*>(out.data());
    std::size_t outputLeft = out.size() * sizeof(char32_t);
    constexpr auto kFailed = static_cast<std::size_t>(-1);
    if (iconv(handle_, &input, &inputLeft, &output, &outputLeft) == kFailed ||
        iconv(handle_, nullptr, nullptr, &output, &outputLeft) == kFailed) {
        return std::nullopt;
    }
    out.resize(out.size() - outputLeft / sizeof(char32_t));
    return out;
}

std::string toUtf8(std::u32string_view text) {
    std::string out;
    out.reserve(text.size() * 3);
    const auto put = [&out](std::uint32_t byte) { out.push_back(static_cast<char>(byte)); };
    for (const char32_t c : text) {
        if (c < 0x80) {
            put(c);
            continue;
        }
        if (c < 0x800) {
            put(0xC0U | (c >> 6U));
        } else {
            if (c < 0x10000) {
                put(0xE0U | (c >> 12U));
            } else {
                put(0xF0U | (c >> 18U));
                put(0x80U | ((c >> 12U) & 0x3FU));
            }
            put(0x80U | ((c >> 6U) & 0x3FU));
        }
        put(0x80U | (c & 0x3FU));
    }
    return out;
}

}  // namespace pellumar::archive
