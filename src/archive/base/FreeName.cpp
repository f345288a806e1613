#include "archive/base/FreeName.h"

#include <linux/limits.h>
#include <sys/random.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace pellumar::archive {

namespace {

// In bytes with its dot; what is longer is a part of the name.
constexpr std::size_t kLongestExtension = 64;

// Whether the byte continues a letter of UTF-8.
bool isInsideLetter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

}  // namespace

std::string numberedName(std::string_view path, std::size_t number) {
    const std::size_t slash = path.rfind('/');
    const std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    const std::size_t dot = path.rfind('.');
    // ".profile" has no extension, nor has a name with a dot far in front.
    const bool hasExtension =
        dot != std::string_view::npos && dot > start && path.size() - dot <= kLongestExtension;
    const std::string_view extension = hasExtension ? path.substr(dot) : std::string_view();
    const std::string marked = " (" + std::to_string(number) + ")" + std::string(extension);
    std::size_t end = path.size() - extension.size();
    if (end - start + marked.size() > NAME_MAX) {
        end = start + NAME_MAX - marked.size();
        while (end > start && isInsideLetter(path[end])) {
            --end;
        }
    }
    return std::string(path.substr(0, end)) + marked;
}

std::string temporaryName() {
    std::uint64_t number = 0;
    static_cast<void>(::getrandom(&number, sizeof(number), 0));
    std::array<char, 32> text{};
    const int size = std::snprintf(
        text.data(), text.size(), "zip-%016llx.part", static_cast<unsigned long long>(number));
    return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace pellumar::archive
