#include "cli/PathList.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "archive/base/File.h"
#include "cli/Arguments.h"

namespace pellumar {
namespace {

// errno if it cannot be read.
tl::expected<std::string, int> contentsOf(const std::filesystem::path& path) {
    const archive::File file(path == kStandardStream ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                                     : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) {
        return tl::unexpected(errno);
    }
    std::string text;
    std::array<char, 64UL * 1024> block{};
    while (true) {
        const ssize_t count = ::read(file.descriptor(), block.data(), block.size());
        if (count == 0) {
            return text;
        }
        if (count > 0) {
            text.append(block.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return tl::unexpected(errno);
        }
    }
}

}  // namespace

tl::expected<std::vector<std::filesystem::path>, std::string> readPathList(
    const std::filesystem::path& list) {
    const tl::expected<std::string, int> text = contentsOf(list);
    if (!text) {
        return tl::unexpected((list == kStandardStream ? "standard input" : list.native()) + ": " +
                              std::generic_category().message(text.error()));
    }
    const char end = text->find('\0') == std::string::npos ? '\n' : '\0';
    std::vector<std::filesystem::path> paths;
    for (std::string_view rest = *text; !rest.empty();) {
        const std::string_view path = rest.substr(0, rest.find(end));
        rest.remove_prefix(std::min(path.size() + 1, rest.size()));
        if (!path.empty()) {
            paths.emplace_back(path);
        }
    }
    return paths;
}

}  // namespace pellumar
