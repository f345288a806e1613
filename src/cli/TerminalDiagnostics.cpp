#include "cli/TerminalDiagnostics.h"

#include "cli/PrintableText.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

std::string nameOf(const QUrl& archive) {
    const std::optional<std::filesystem::path> path = localPath(archive);
    return path ? path->native() : archive.toString(QUrl::FullyEncoded).toStdString();
}

std::string describe(const archive::Warning& warning) {
    std::string text(archive::describe(warning.code));
    if (!warning.entry.empty()) {
        text += ": " + warning.entry;
    }
    return text + " (at offset " + std::to_string(warning.offset) + ")";
}

}  // namespace

void TerminalDiagnostics::jobFailed(const QUrl& archive, const archive::Error& error) {
    const std::lock_guard lock(mutex_);
    if (count_++ == 0) {
        first_ = printable(nameOf(archive) + ": " + error.describe());
    }
}

void TerminalDiagnostics::jobWarned(const QUrl& archive, const archive::Warnings& warnings) {
    if (quiet_) {
        return;
    }
    const std::string prefix = "pellumar: " + nameOf(archive) + ": warning: ";
    std::string lines;
    for (const archive::Warning& warning : warnings.kept()) {
        lines += printable(prefix + describe(warning)) + '\n';
    }
    if (warnings.count() > warnings.kept().size()) {
        lines += printable(prefix) + std::to_string(warnings.count() - warnings.kept().size()) +
                 " more\n";
    }
    const std::lock_guard lock(mutex_);
    static_cast<void>(std::fputs(lines.c_str(), stream_));
}

std::optional<std::string> TerminalDiagnostics::failure() const {
    const std::lock_guard lock(mutex_);
    if (count_ == 0) {
        return std::nullopt;
    }
    return count_ == 1 ? first_ : first_ + " (and " + std::to_string(count_ - 1) + " more)";
}

}  // namespace pellumar
