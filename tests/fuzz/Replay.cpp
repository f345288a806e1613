#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>

#include "support/FileContents.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Runs a fuzzer's function over each file below the folders given, and over nothing at all.
int main(int count, char** arguments) {
    std::size_t inputs = 0;
    LLVMFuzzerTestOneInput(nullptr, 0);
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::is_directory(arguments[i])) {
            continue;
        }
        for (const auto& file : std::filesystem::recursive_directory_iterator(arguments[i])) {
            if (!file.is_regular_file()) {
                continue;
            }
            std::printf("%s\n", file.path().c_str());
            const auto bytes = pellumar::test::readFile(file.path());
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++inputs;
        }
    }
    std::printf("%zu inputs\n", inputs);
    return 0;
}
