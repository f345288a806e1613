#include "archive/reading/LinkSafety.h"

#include <algorithm>

namespace pellumar::archive {

namespace {

// MAXSYMLINKS of the kernel: more are answered with ELOOP.
constexpr int kMostLinks = 40;

// Removes the last component; false if there is none.
bool climb(std::string& folder) {
    if (folder.empty()) {
        return false;
    }
    const std::size_t slash = folder.rfind('/');
    folder.erase(slash == std::string::npos ? 0 : slash);
    return true;
}

}  // namespace

bool LinkSafety::isSafe(std::string_view path) const {
    std::string place(path);  // where the walk stands, from the destination folder
    climb(place);
    std::string rest = targetOf(path);  // what is still to be walked
    int linksFollowed = 0;
    // The system takes a target up to a NUL, so that "..", NUL and more would be ".." to it.
    if (rest.empty() || rest.find('\0') != std::string::npos) {
        return false;
    }
    while (!rest.empty()) {
        if (rest.front() == '/') {
            return false;
        }
        const std::size_t end = std::min(rest.find('/'), rest.size());
        const std::string component = rest.substr(0, end);
        rest.erase(0, std::min(rest.find_first_not_of('/', end), rest.size()));
        if (component == ".") {
            continue;
        }
        if (component == "..") {
            if (!climb(place)) {
                return false;
            }
            continue;
        }
        const std::size_t above = place.size();
        place += place.empty() ? "" : "/";
        place += component;
        const auto link = links_.find(place);
        if (link == links_.end()) {
            continue;
        }
        if (++linksFollowed > kMostLinks) {
            return false;
        }
        place.erase(above);
        rest.insert(0, rest.empty() ? 0 : 1, '/');
        rest.insert(0, link->second);
    }
    return true;
}

}  // namespace pellumar::archive
