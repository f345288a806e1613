#include "support/FileContents.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace pellumar::test {

namespace {

[[noreturn]] void fail(const std::filesystem::path& path) {
    std::perror(path.c_str());
    std::abort();
}

template <typename Container>
Container readAs(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (!file || size < 0) {
        fail(path);
    }
    Container content(static_cast<std::size_t>(size), {});
    file.seekg(0);
    file.read(reinterpret_cast<char*>(content.data()), size);
    if (!file) {
        fail(path);
    }
    return content;
}

}  // namespace

void writeFile(const std::filesystem::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file) {
        fail(path);
    }
}

void writeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    writeFile(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

std::vector<std::uint8_t> readFile(const std::filesystem::path& path) {
    return readAs<std::vector<std::uint8_t>>(path);
}

std::string readText(const std::filesystem::path& path) {
    return readAs<std::string>(path);
}

}  // namespace pellumar::test
