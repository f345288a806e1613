#include <sys/mman.h>

#include <filesystem>
#include <string>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/base/File.h"
#include "fuzz/Require.h"
#include "support/TemporaryFolder.h"

namespace {

using pellumar::fuzz::require;

// What an input may unpack to: bombs are for the tests, here they would only cost time.
constexpr std::uint64_t kMostUnpacked = 8ULL * 1024 * 1024;

std::uint64_t unpackedSize(const pellumar::archive::Reader& archive) {
    std::uint64_t sum = 0;
    for (const pellumar::archive::Entry& entry : archive) {
        require(entry.fault ||
                    (!entry.path.empty() && entry.path.front() != '/' &&
                     ("/" + std::string(entry.path) + "/").find("/../") == std::string::npos),
                "every entry without a fault has a safe name");
        if (entry.uncompressedSize > kMostUnpacked) {
            return entry.uncompressedSize;
        }
        sum += entry.uncompressedSize;
    }
    return sum;
}

}  // namespace

// Opens any bytes as an archive and extracts it. Nothing may appear beside the destination.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    namespace archive = pellumar::archive;
    archive::File file(::memfd_create("input", MFD_CLOEXEC));
    require(file.write({data, size}).has_value(), "the input can be written");
    const std::string path = "/proc/self/fd/" + std::to_string(file.descriptor());
    {
        const auto opened = archive::Reader::open(path);
        if (!opened || unpackedSize(*opened) > kMostUnpacked) {
            return 0;
        }
    }
    const pellumar::test::TemporaryFolder folder;
    const archive::Password password("geheim");  // that of the inputs which are encrypted
    const auto report = archive::unzipItem(path, folder / "destination", false, &password);
    require(report || !report.error().describe().empty(), "an error has a description");
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        require(entry.path().filename() == "destination", "nothing is written beside it");
    }
    return 0;
}
