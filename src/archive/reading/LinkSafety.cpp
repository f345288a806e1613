#include "archive/reading/LinkSafety.h"

#include <linux/limits.h>

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
    std::size_t at = 0;  // in `rest`
    while (at < rest.size()) {
        if (rest[at] == '/') {
            return false;
        }
        const std::size_t end = std::min(rest.find('/', at), rest.size());
        const std::string_view component = std::string_view(rest).substr(at, end - at);
        at = std::min(rest.find_first_not_of('/', end), rest.size());
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
        // No real path is that long, and without a bound each link of a chain could add as much to
        // be walked again for every link that leads into the chain.
        if (link->second.size() + (rest.size() - at) >= PATH_MAX) {
            return false;
        }
        rest.replace(0, at, at < rest.size() ? link->second + "/" : link->second);
        at = 0;
    }
    return true;
}

}  // namespace pellumar::archive
