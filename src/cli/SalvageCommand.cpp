#include "cli/SalvageCommand.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "archive/Salvage.h"
#include "cli/HumanSize.h"
#include "cli/Interruption.h"
#include "cli/PasswordSource.h"
#include "cli/ProgressLine.h"

namespace pellumar {
namespace {

using archive::ErrorCode;
using archive::LostEntry;
using archive::Result;
using archive::SalvageReport;

// True if nothing is lost.
bool tellLosses(const std::string& archive, const SalvageReport& report, Messages& messages) {
    const std::string start = archive + ": lost: ";
    for (const LostEntry& lost : report.lostEntries) {
        messages.fail(start +
                      archive::Error{.code = lost.reason, .entry = lost.path, .offset = lost.offset}
                          .describe());
    }
    if (report.lost > report.lostEntries.size()) {
        messages.fail(start + std::to_string(report.lost - report.lostEntries.size()) + " more");
    }
    if (!report.hasDirectory) {
        messages.fail(archive +
                      ": has lost its directory, so there may have been more; files come "
                      "without their permissions");
    }
    return report.lost == 0 && report.hasDirectory;
}

}  // namespace

int salvageArchive(const SalvageArguments& arguments, Messages& messages) {
    std::shared_ptr<const archive::Password> password;
    if (!arguments.passwordFile.empty()) {
        auto read = passwordIn(arguments.passwordFile);
        if (!read) {
            return messages.fail(read.error());
        }
        password = *std::move(read);
    }
    const std::filesystem::path parent = arguments.to.parent_path();
    std::error_code error;
    if (!parent.empty()) {
        std::filesystem::create_directories(parent, error);
    }
    if (error) {
        return messages.fail(parent.native() + ": " + error.message());
    }
    const Interruption interruption;
    Result<SalvageReport> report;
    {
        ProgressLine line(messages);
        archive::SalvageOptions options{.password = password.get(), .stop = interruption.token()};
        if (messages.hasStatus()) {
            options.progress = [&line](std::uint64_t done, std::uint64_t total) {
                line.show({.bytesDone = done, .bytesTotal = total, .entry = {}});
            };
        }
        report = archive::salvage(arguments.archive, arguments.to, options);
    }
    const std::string& name = arguments.archive.native();
    if (report) {
        const bool isWhole = tellLosses(name, *report, messages);
        messages.remark(humanCount(report->recovered) + ", " + humanSize(report->bytes) +
                        " salvaged");
        return isWhole ? kExitSuccess : kExitFailure;
    }
    if (report.error().code == ErrorCode::kCancelled) {
        messages.fail("interrupted; what was salvaged stays in " + arguments.to.native());
        return interruption.exitCode();
    }
    return messages.fail(name + ": " + report.error().describe());
}

}  // namespace pellumar
