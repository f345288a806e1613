#include "cli/PrintableText.h"

#include <cstddef>

namespace pellumar {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
// The control characters U+0080 to U+009F are this byte and a second one below 0xA0.
constexpr unsigned char kLeadOfControls = 0xC2;
constexpr unsigned char kEndOfControls = 0xA0;

// Whether nothing in the text can be part of what is to be escaped; most texts are so.
bool isPlain(std::string_view text) {
    unsigned suspects = 0;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        suspects += byte < kFirstPrintable || byte == kDelete || byte == kLeadOfControls ? 1U : 0U;
    }
    return suspects == 0;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string line;
    appendPrintable(line, text);
    return line;
}

void appendPrintable(std::string& line, std::string_view text) {
    if (isPlain(text)) {
        line += text;
        return;
    }
    const auto escape = [&line](unsigned char byte) {
        line += "\\x";
        line += kDigits[byte / kDigits.size()];
        line += kDigits[byte % kDigits.size()];
    };
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool isOne = byte < kFirstPrintable || byte == kDelete;
        const bool isTwo = byte == kLeadOfControls && i + 1 < text.size() &&
                           static_cast<unsigned char>(text[i + 1]) < kEndOfControls;
        if (isOne || isTwo) {
            // What was plain up to here goes in one piece.
            line.append(text, written, i - written);
            escape(byte);
            if (isTwo) {
                escape(static_cast<unsigned char>(text[++i]));
            }
            written = i + 1;
        }
    }
    line.append(text, written);
}

}  // namespace pellumar
