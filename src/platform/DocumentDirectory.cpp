#include "platform/DocumentDirectory.h"

#include <QByteArray>
#include <QtGlobal>

namespace pellumar {
namespace {

// A variable of the environment that is to hold an absolute path. A relative one is ignored, as the
// XDG base directories want it.
std::optional<std::filesystem::path> folderFrom(const char* variable) {
    std::filesystem::path path = qgetenv(variable).toStdString();
    return path.is_absolute() ? std::optional(std::move(path)) : std::nullopt;
}

}  // namespace

std::optional<std::filesystem::path> DocumentDirectory::inDataFolder(std::string_view name) {
    std::optional<std::filesystem::path> data = folderFrom("XDG_DATA_HOME");
    if (!data) {
        const std::optional<std::filesystem::path> home = folderFrom("HOME");
        if (!home) {
            return std::nullopt;
        }
        data = *home / ".local/share";
    }
    return *data / "pellumar-zip" / name;
}

std::filesystem::path DocumentDirectory::path() const {
    if (chosen_) {
        return *chosen_;
    }
    const std::optional<std::filesystem::path> documents = inDataFolder("Documents");
    if (!documents) {
        qFatal("No folder for documents: neither XDG_DATA_HOME nor HOME holds an absolute path");
    }
    return *documents;
}

}  // namespace pellumar
