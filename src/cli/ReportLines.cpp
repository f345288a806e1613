#include "cli/ReportLines.h"

#include "cli/PrintableText.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

std::string nameOf(const QUrl& archive) {
    const std::optional<std::filesystem::path> path = localPath(archive);
    return path ? path->native() : archive.toString(QUrl::FullyEncoded).toStdString();
}

}  // namespace

std::string failureLine(const JobReport& report) {
    const std::string line = nameOf(report.archive()) + ": " + report.failures().front().describe();
    const std::uint64_t others = report.failureCount() - 1;
    return others == 0 ? line : line + " (and " + std::to_string(others) + " more)";
}

std::string warningLines(const JobReport& report) {
    const archive::Warnings& warnings = report.warnings();
    const std::string prefix = printable("pellumar: " + nameOf(report.archive()) + ": warning: ");
    std::string lines;
    for (const archive::Warning& warning : warnings.kept()) {
        lines += prefix + printable(warning.describe()) + '\n';
    }
    const std::uint64_t others = warnings.count() - warnings.kept().size();
    return others == 0 ? lines : lines + prefix + std::to_string(others) + " more\n";
}

}  // namespace pellumar
