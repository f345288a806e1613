#include "cli/TestCommand.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/ArchiveInput.h"
#include "cli/HumanSize.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"

namespace pellumar {
namespace {

using Faults = archive::Result<std::vector<archive::Error>>;

// Of several entries of one path extracting takes the last.
void warnOfDuplicates(const ArchiveInput& input, Messages& messages) {
    std::unordered_map<std::string_view, std::size_t> last;
    archive::Warnings warnings;
    for (std::size_t i = 0; i < input.reader().size(); ++i) {
        const archive::Entry& entry = input.reader()[i];
        const auto [before, isNew] = last.try_emplace(entry.path, i);
        if (!isNew && !entry.fault && entry.type != archive::EntryType::kFolder) {
            warnings.add(archive::WarningCode::kDuplicatePath,
                         entry.path,
                         input.reader()[before->second].localHeaderOffset);
        }
        before->second = i;
    }
    messages.warn(input.name(), warnings);
}

int testArchive(const std::filesystem::path& path, PasswordFile& passwordFile, Messages& messages) {
    const auto input = ArchiveInput::open(path, messages);
    if (!input) {
        return input.error();
    }
    const auto entries = input->select({}, ArchiveInput::Names::kWithAllBelow);
    const auto password = input->password(*entries, passwordFile);
    if (!password) {
        return password.error();
    }
    const Interruption interruption;
    Faults faults;
    {
        ProgressLine progress(messages);
        faults = input->reader().test({.password = password->get(),
                                       .stop = interruption.token(),
                                       .progress = progress.handler()});
    }
    if (!faults && faults.error().code == archive::ErrorCode::kCancelled) {
        messages.fail("interrupted");
        return interruption.exitCode();
    }
    if (!faults) {
        return input->fail(faults.error());
    }
    warnOfDuplicates(*input, messages);
    for (const archive::Error& fault : *faults) {
        messages.fail(input->name() + ": " + fault.describe());
    }
    if (std::any_of(faults->begin(), faults->end(), ArchiveInput::isDamage)) {
        messages.fail(input->name() + ": \"pellumar salvage\" gets out what is whole");
    }
    if (!faults->empty()) {
        return kExitFailure;
    }
    messages.remark(input->name() + ": all right, " + humanCount(entries->size()));
    return kExitSuccess;
}

}  // namespace

int testArchives(const TestArguments& arguments, Messages& messages) {
    int code = kExitSuccess;
    PasswordFile passwordFile(arguments.passwordFile);
    for (const std::filesystem::path& path : arguments.archives) {
        code = std::max(code, testArchive(path, passwordFile, messages));
        if (code > kExitSignal) {
            break;
        }
    }
    return code;
}

}  // namespace pellumar
