#include "cli/SalvageCommand.h"

#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "archive/Salvage.h"
#include "cli/HumanSize.h"
#include "cli/InputFile.h"
#include "cli/Interruption.h"
#include "cli/PasswordSource.h"
#include "cli/ProgressLine.h"
#include "cli/TargetFolder.h"

namespace pellumar {
namespace {

using archive::ErrorCode;
using archive::LostEntry;
using archive::Result;
using archive::SalvageReport;

// One archive that is salvaged.
class Salvage {
  public:
    Salvage(const SalvageArguments& arguments, Messages& messages)
        : arguments_(arguments),
          messages_(messages),
          name_(inputName(arguments.archive)),
          passwordFile_(arguments.passwordFile) {}

    int run() {
        if (const std::optional<std::string> reason = whyNoArchive(arguments_.archive)) {
            return fail(*reason);
        }
        auto target = TargetFolder::make(arguments_.to);
        if (!target) {
            return messages_.fail(target.error());
        }
        const Result<SalvageReport> report = salvage();
        if (report) {
            target->keep();
            const bool isWhole = tellLosses(*report);
            messages_.remark(humanCount(report->recovered) + ", " + humanSize(report->bytes) +
                             " salvaged");
            return isWhole ? kExitSuccess : kExitFailure;
        }
        switch (report.error().code) {
            case ErrorCode::kCancelled:
                messages_.fail("interrupted; what was salvaged stays in " + arguments_.to.native());
                return interruption_.exitCode();
            case ErrorCode::kNotAnArchive:
                return fail("not an archive: there is nothing of one in it");
            default:
                return fail(report.error().describe());
        }
    }

  private:
    using Password = std::shared_ptr<const archive::Password>;

    int fail(const std::string& reason) { return messages_.fail(name_ + ": " + reason); }

    Result<SalvageReport> salvage() {
        ProgressLine line(messages_);
        archive::SalvageOptions options;
        options.stop = interruption_.token();
        options.askForPassword = [this](bool wasWrong) { return nextPassword(wasWrong); };
        if (messages_.hasStatus()) {
            options.progress = [&line](std::uint64_t done, std::uint64_t total) {
                line.show({.bytesDone = done, .bytesTotal = total, .entry = {}});
            };
        }
        if (arguments_.archive != kStandardStream) {
            return archive::salvage(arguments_.archive, arguments_.to, options);
        }
        archive::File input = standardInput();
        return input.isOpen() ? archive::salvage(std::move(input), arguments_.to, options)
                              : archive::systemFailure(ErrorCode::kOpenFailed);
    }

    // Null if there is none, and it has been told why.
    Password nextPassword(bool wasWrong) {
        if (wasWrong) {
            fail(std::string(archive::describe(ErrorCode::kWrongPassword)));
        }
        if (passwordFile_) {
            if (!wasWrong && !passwordFile_.password()) {
                messages_.fail(passwordFile_.password().error());
            }
            return wasWrong ? nullptr : passwordFile_.password().value_or(nullptr);
        }
        if (asked_ == kMostAsked) {
            return nullptr;
        }
        ++asked_;
        messages_.clearStatus();
        auto answer = askOnTerminal(name_, interruption_.token());
        if (answer) {
            return *std::move(answer);
        }
        if (answer.error() == NoAnswer::kInterrupted) {
            interruption_.interrupt(SIGINT);
        } else {
            fail(kNeedsPassword);
        }
        return nullptr;
    }

    // True if nothing is lost.
    bool tellLosses(const SalvageReport& report) {
        for (const LostEntry& lost : report.lostEntries) {
            fail("lost: " +
                 archive::Error{.code = lost.reason, .entry = lost.path, .offset = lost.offset}
                     .describe());
        }
        if (report.lost > report.lostEntries.size()) {
            fail("lost: " + std::to_string(report.lost - report.lostEntries.size()) + " more");
        }
        if (!report.missingVolume.empty()) {
            fail("a volume of it is missing: " + report.missingVolume);
        }
        if (!report.hasDirectory) {
            fail(
                "has lost its directory, so there may have been more; files come without their "
                "permissions");
        }
        return report.lost == 0 && report.hasDirectory && report.missingVolume.empty();
    }

    const SalvageArguments& arguments_;
    Messages& messages_;
    const std::string name_;
    PasswordFile passwordFile_;
    int asked_ = 0;
    Interruption interruption_;
};

}  // namespace

int salvageArchive(const SalvageArguments& arguments, Messages& messages) {
    return Salvage(arguments, messages).run();
}

}  // namespace pellumar
