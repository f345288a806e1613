#include "platform/UserFolders.h"

#include <QByteArray>
#include <QtGlobal>
#include <utility>

namespace pellumar {
namespace {

namespace fs = std::filesystem;

struct Base {
    const char* variable;
    const char* belowHome;
};

constexpr Base kData{"XDG_DATA_HOME", ".local/share"};
constexpr Base kConfig{"XDG_CONFIG_HOME", ".config"};
constexpr Base kCache{"XDG_CACHE_HOME", ".cache"};

std::optional<fs::path> folderFrom(const char* variable) {
    fs::path path = qgetenv(variable).toStdString();
    return path.is_absolute() ? std::optional(std::move(path)) : std::nullopt;
}

std::optional<fs::path> find(const Base& base) {
    if (std::optional<fs::path> chosen = folderFrom(base.variable)) {
        return chosen;
    }
    const std::optional<fs::path> home = folderFrom("HOME");
    return home ? std::optional(*home / base.belowHome) : std::nullopt;
}

fs::path must(const Base& base) {
    std::optional<fs::path> found = find(base);
    if (!found) {
        qFatal("No folder: neither %s nor HOME holds an absolute path", base.variable);
    }
    return *std::move(found);
}

fs::path own(const Base& base, std::string_view name) {
    return must(base) / "pellumar-zip" / name;
}

}  // namespace

std::optional<std::string> UserFolders::whyMissing() {
    for (const Base& base : {kData, kConfig, kCache}) {
        if (!find(base)) {
            return "There is no home folder to keep anything in: set HOME to the full path of one.";
        }
    }
    return std::nullopt;
}

fs::path UserFolders::data(std::string_view name) {
    return own(kData, name);
}

fs::path UserFolders::config(std::string_view name) {
    return own(kConfig, name);
}

fs::path UserFolders::cache(std::string_view name) {
    return own(kCache, name);
}

fs::path UserFolders::commonCache() {
    return must(kCache);
}

}  // namespace pellumar
