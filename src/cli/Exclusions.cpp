#include "cli/Exclusions.h"

#include <fnmatch.h>

#include <algorithm>
#include <string_view>

namespace pellumar {

Exclusions::Exclusions(const std::vector<std::string>& patterns) {
    for (std::string_view pattern : patterns) {
        while (pattern.size() > 1 && pattern.ends_with('/')) {
            pattern.remove_suffix(1);
        }
        const bool isOfPaths = pattern.find('/') != std::string_view::npos;
        while (pattern.starts_with('/') || pattern.starts_with("./")) {
            pattern.remove_prefix(pattern.front() == '/' ? 1 : 2);
        }
        (isOfPaths ? ofPaths_ : ofNames_).emplace_back(pattern);
    }
}

bool Exclusions::cover(const std::string& name) const {
    const auto fits = [](const char* text, int flags) {
        return [text, flags](const std::string& pattern) {
            return ::fnmatch(pattern.c_str(), text, flags) == 0;
        };
    };
    const char* const last = name.c_str() + name.find_last_of('/') + 1;
    return std::any_of(ofNames_.begin(), ofNames_.end(), fits(last, 0)) ||
           std::any_of(ofPaths_.begin(), ofPaths_.end(), fits(name.c_str(), FNM_PATHNAME));
}

}  // namespace pellumar
