#include "cli/ExtractCommand.h"

#include "cli/ArchiveInput.h"
#include "cli/HumanSize.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"
#include "cli/TargetFolder.h"

namespace pellumar {
namespace {

using archive::ErrorCode;
using archive::ExtractionReport;
using archive::Result;

int tellFailure(const ArchiveInput& input, const archive::Error& error) {
    return error.code == ErrorCode::kAlreadyExists
               ? input.fail(error.describe() + "; --overwrite, --skip or --rename would go on")
               : input.fail(error);
}

std::string remarkOn(const ExtractionReport& report) {
    std::string text = humanCount(report.entries) + ", " + humanSize(report.bytes);
    if (report.skipped > 0) {
        text += ", " + std::to_string(report.skipped) + " skipped";
    }
    if (report.renamed > 0) {
        text += ", " + std::to_string(report.renamed) + " renamed";
    }
    return text;
}

}  // namespace

int extractArchive(const ExtractArguments& arguments, Messages& messages) {
    const auto input = ArchiveInput::open(arguments.archive, messages);
    if (!input) {
        return input.error();
    }
    const auto entries = input->select(arguments.names, ArchiveInput::Names::kWithAllBelow);
    if (!entries) {
        return entries.error();
    }
    PasswordFile passwordFile(arguments.passwordFile);
    const auto password = input->password(*entries, passwordFile);
    if (!password) {
        return password.error();
    }
    auto target = TargetFolder::make(arguments.to);
    if (!target) {
        return messages.fail(target.error());
    }
    const Interruption interruption;
    Result<ExtractionReport> report;
    {
        ProgressLine progress(messages);
        report = input->reader().extract(*entries,
                                         arguments.to,
                                         {.password = password->get(),
                                          .existing = arguments.existing,
                                          .stripComponents = arguments.strip,
                                          .sync = arguments.sync,
                                          .stop = interruption.token(),
                                          .progress = progress.handler()});
    }
    if (report) {
        target->keep();
        messages.warn(input->name(), report->warnings);
        messages.remark(remarkOn(*report));
        return kExitSuccess;
    }
    if (report.error().code == ErrorCode::kCancelled) {
        messages.fail("interrupted; the files that were finished stay in " + arguments.to.native());
        return interruption.exitCode();
    }
    return tellFailure(*input, report.error());
}

}  // namespace pellumar
