#include "cli/TestCommand.h"

#include <algorithm>
#include <vector>

#include "cli/ArchiveInput.h"
#include "cli/HumanSize.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"

namespace pellumar {
namespace {

using Faults = archive::Result<std::vector<archive::Error>>;

int testArchive(const std::filesystem::path& path,
                const std::filesystem::path& passwordFile,
                Messages& messages) {
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
    for (const archive::Error& fault : *faults) {
        messages.fail(input->name() + ": " + fault.describe());
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
    for (const std::filesystem::path& path : arguments.archives) {
        code = std::max(code, testArchive(path, arguments.passwordFile, messages));
        if (code > kExitSignal) {
            break;
        }
    }
    return code;
}

}  // namespace pellumar
