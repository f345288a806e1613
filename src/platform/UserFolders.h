#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pellumar {

// Where the application keeps what is the user's: in a folder of its own, "pellumar-zip", below
// each of the XDG base directories (version 0.8). A variable that is missing, empty or not absolute
// counts for nothing, and the folder's usual place below HOME takes its place.
//
// Every path is absolute, and the folder need not exist. There is no place to fall back to: what
// would be emptied there could be anybody's. So a program asks whyMissing() before it touches a
// file, and stops if it is told something; who asks for a path that cannot be told stops the
// process.
class UserFolders {
  public:
    UserFolders() = delete;

    // One sentence for the person who has started the program, without its end of line; nothing if
    // all folders can be told.
    [[nodiscard]] static std::optional<std::string> whyMissing();

    // The application's file or folder `name`: what must last, what the user has chosen, and what
    // can be made again.
    [[nodiscard]] static std::filesystem::path data(std::string_view name);
    [[nodiscard]] static std::filesystem::path config(std::string_view name);
    [[nodiscard]] static std::filesystem::path cache(std::string_view name);

    // The cache that all applications share.
    [[nodiscard]] static std::filesystem::path commonCache();
};

}  // namespace pellumar
