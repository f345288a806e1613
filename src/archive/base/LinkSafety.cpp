#include "archive/base/LinkSafety.h"

#include <linux/limits.h>

#include <algorithm>
#include <optional>
#include <utility>

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

// How many components of a path lead upwards, if all of them stand in front of those that lead
// downwards.
std::optional<std::size_t> climbsInFront(std::string_view target) {
    std::size_t climbs = 0;
    bool descended = false;
    for (std::size_t at = 0; at < target.size();) {
        const std::size_t end = std::min(target.find('/', at), target.size());
        const std::string_view component = target.substr(at, end - at);
        if (component == "..") {
            if (descended) {
                return std::nullopt;
            }
            ++climbs;
        } else if (!component.empty() && component != ".") {
            descended = true;
        }
        at = end + 1;
    }
    return climbs;
}

}  // namespace

bool LinkSafety::add(std::string_view path, std::string target) {
    if (target.size() > kMostTargetBytes - targetBytes_) {
        return false;
    }
    targetBytes_ += target.size();
    links_[path] = std::move(target);
    return true;
}

bool LinkSafety::isSafe(std::string_view path) {
    const std::string& target = targetOf(path);
    // The system takes a target up to a NUL, so that "..", NUL and more would be ".." to it.
    if (target.empty() || target.front() == '/' || target.find('\0') != std::string::npos) {
        return false;
    }
    // Nearly every link is of this kind: climbs from where it really stands, then only descends, by
    // way of other links perhaps, each of which stays inside itself.
    if (const auto climbs = climbsInFront(target)) {
        return *climbs <= static_cast<std::size_t>(std::count(path.begin(), path.end(), '/'));
    }
    return staysInside(path);
}

const std::string* LinkSafety::linkThatStandsAt(std::string_view path) const {
    const auto link = allStand_ ? links_.find(path) : links_.end();
    return link == links_.end() ? nullptr : &link->second;
}

// Walks the target as the system would, through the other links.
bool LinkSafety::staysInside(std::string_view path) {
    std::string place(path);  // where the walk stands, from the destination folder
    climb(place);
    std::string rest = targetOf(path);  // what is still to be walked
    int linksFollowed = 0;
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
        // Thousands of links could lead through the same long path.
        lookedUp_ += place.size();
        if (lookedUp_ > kMostLookedUp) {
            return false;
        }
        const std::string* const link = linkThatStandsAt(place);
        if (link == nullptr) {
            if (isFolder_(place)) {
                continue;
            }
            // Nobody knows what this will be: to the file system its name may be that of a link,
            // or another link than the archive's stands there, and climbing from there would lead
            // elsewhere. Descending is as safe as that link.
            return climbsInFront(std::string_view(rest).substr(at)) == 0U;
        }
        if (++linksFollowed > kMostLinks) {
            return false;
        }
        place.erase(above);
        // No real path is that long, and without a bound each link of a chain could add as much to
        // be walked again for every link that leads into the chain.
        if (link->size() + (rest.size() - at) >= PATH_MAX) {
            return false;
        }
        rest.replace(0, at, at < rest.size() ? *link + "/" : *link);
        at = 0;
    }
    return true;
}

}  // namespace pellumar::archive
