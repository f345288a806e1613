#include "platform/documents/FileNames.h"

#include <climits>

#include "platform/FileUrl.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;

bool isInsideLetter(const std::string& text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
}

QString alike(const std::string& name) {
    return QString::fromStdString(name).normalized(QString::NormalizationForm_C).toCaseFolded();
}

// Of an archive that was compressed as a whole, as of "src.tar.gz", both parts.
std::string extensionOf(const fs::path& name) {
    const fs::path inner = name.stem().extension();
    const bool isDouble = alike(inner.string()) == QStringLiteral(".tar");
    return (isDouble ? inner.string() : std::string()) + name.extension().string();
}

}  // namespace

std::string numberedName(const std::string& name, int number, bool isFolder) {
    const std::string extension = isFolder ? std::string() : extensionOf(name);
    const std::string end = " (" + std::to_string(number) + ")" + extension;
    std::string stem = name.substr(0, name.size() - extension.size());
    if (stem.size() + end.size() > NAME_MAX && end.size() < NAME_MAX) {
        std::size_t length = NAME_MAX - end.size();
        while (length > 0 && isInsideLetter(stem, length)) {
            --length;
        }
        stem.resize(length);
    }
    return stem + end;
}

std::string lastComponent(const fs::path& path) {
    return withoutTrailingSlash(path).filename().string();
}

std::string DistinctNames::take(const std::string& name, bool isFolder) {
    std::string free = name;
    for (int number = 2; taken_.contains(alike(free)); ++number) {
        free = numberedName(name, number, isFolder);
    }
    taken_.insert(alike(free));
    return free;
}

}  // namespace pellumar
