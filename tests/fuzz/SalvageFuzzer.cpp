#include <sys/mman.h>

#include <filesystem>
#include <string>

#include "archive/Salvage.h"
#include "archive/base/File.h"
#include "fuzz/Require.h"
#include "support/TemporaryFolder.h"

// Salvages any bytes. Nothing may appear beside the destination, and all that is counted is there.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    namespace archive = pellumar::archive;
    namespace fs = std::filesystem;
    using pellumar::fuzz::require;
    archive::File file(::memfd_create("input", MFD_CLOEXEC));
    require(file.write({data, size}).has_value(), "the input can be written");
    const pellumar::test::TemporaryFolder folder;
    const archive::Password password("geheim");  // that of the inputs which are encrypted
    const auto report = archive::salvage("/proc/self/fd/" + std::to_string(file.descriptor()),
                                         folder / "destination",
                                         {.password = &password});
    require(report || report.error().code == archive::ErrorCode::kNoSpace ||
                report.error().code == archive::ErrorCode::kNotAnArchive,
            "damage is no reason to fail");
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        require(entry.path().filename() == "destination", "nothing is written beside it");
    }
    if (report) {
        std::uint64_t bytes = 0;
        for (const auto& entry : fs::recursive_directory_iterator(folder / "destination")) {
            bytes += entry.is_symlink() || !entry.is_regular_file() ? 0 : entry.file_size();
        }
        require(bytes == report->bytes, "what is counted stands there, and nothing else");
        require(report->lostEntries.size() <= report->lost, "all that is listed is counted");
    }
    return 0;
}
