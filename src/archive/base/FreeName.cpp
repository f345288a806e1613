#include "archive/base/FreeName.h"

#include <sys/random.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace pellumar::archive {

std::string numberedName(std::string_view path, std::size_t number) {
    const std::size_t slash = path.rfind('/');
    const std::size_t start = slash == std::string_view::npos ? 0 : slash + 1;
    const std::size_t dot = path.rfind('.');
    // ".profile" has no extension.
    const bool hasExtension = dot != std::string_view::npos && dot > start;
    const std::size_t end = hasExtension ? dot : path.size();
    return std::string(path.substr(0, end)) + " (" + std::to_string(number) + ")" +
           std::string(path.substr(end));
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
