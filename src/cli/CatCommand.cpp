#include "cli/CatCommand.h"

#include <memory>

#include "cli/ArchiveInput.h"
#include "cli/Output.h"

namespace pellumar {
namespace {

// What comes for an entry goes to the one output.
class OutputSink final : public archive::DataSink {
  public:
    explicit OutputSink(Output& output) : output_(output) {}

    [[nodiscard]] archive::Result<> write(archive::ByteView bytes) override {
        return output_.write(bytes);
    }

  private:
    Output& output_;
};

}  // namespace

int printEntries(const CatArguments& arguments, Messages& messages) {
    const auto input = ArchiveInput::open(arguments.archive, messages);
    if (!input) {
        return input.error();
    }
    const auto entries = input->select(arguments.names, ArchiveInput::Names::kThemselves);
    if (!entries) {
        return entries.error();
    }
    for (const std::size_t index : *entries) {
        const archive::Entry& entry = input->reader()[index];
        if (entry.type == archive::EntryType::kFolder) {
            return input->fail(std::string(entry.path) + " is a folder");
        }
    }
    PasswordFile passwordFile(arguments.passwordFile);
    const auto password = input->password(*entries, passwordFile);
    if (!password) {
        return password.error();
    }
    Output output;
    const auto report = input->reader().extractTo(
        *entries,
        [&output](std::size_t) -> archive::Result<std::unique_ptr<archive::DataSink>> {
            return std::make_unique<OutputSink>(output);
        },
        {.password = password->get()});
    if (const std::string reason = output.finish(); !reason.empty()) {
        return messages.fail(reason);
    }
    return report ? kExitSuccess : input->fail(report.error());
}

}  // namespace pellumar
