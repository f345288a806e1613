#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "archive/hostile/Deceit.h"
#include "support/FileContents.h"

// Writes deceits into a folder, under numbers, and prints what is wrong with each:
//
//     deceits FOLDER STRIDE
int main(int count, char** arguments) {
    if (count != 3) {
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::size_t number = 0;
    pellumar::test::forEachDeceit(std::strtoul(arguments[2], nullptr, 10),
                                  [&](const pellumar::test::Deceit& deceit) {
                                      const std::string name = std::to_string(number++) + ".zip";
                                      pellumar::test::writeFile(folder / name, deceit.archive);
                                      std::printf("%s\n", deceit.what.c_str());
                                  });
    return 0;
}
