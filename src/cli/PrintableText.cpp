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

}  // namespace

std::string printable(std::string_view text) {
    std::string line;
    const auto escape = [&line](unsigned char byte) {
        line += "\\x";
        line += kDigits[byte / kDigits.size()];
        line += kDigits[byte % kDigits.size()];
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < kFirstPrintable || byte == kDelete) {
            escape(byte);
        } else if (byte == kLeadOfControls && i + 1 < text.size() &&
                   static_cast<unsigned char>(text[i + 1]) < kEndOfControls) {
            escape(byte);
            escape(static_cast<unsigned char>(text[++i]));
        } else {
            line += text[i];
        }
    }
    return line;
}

}  // namespace pellumar
