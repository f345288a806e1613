#include "cli/ReportLines.h"

#include "platform/FileUrl.h"

namespace pellumar {

std::string failureLine(const JobReport& report) {
    const std::string line = archiveName(report) + ": " + report.failures().front().describe();
    const std::uint64_t others = report.failureCount() - 1;
    return others == 0 ? line : line + " (and " + std::to_string(others) + " more)";
}

std::string archiveName(const JobReport& report) {
    const std::optional<std::filesystem::path> path = localPath(report.archive());
    return path ? path->native() : report.archive().toString(QUrl::FullyEncoded).toStdString();
}

}  // namespace pellumar
