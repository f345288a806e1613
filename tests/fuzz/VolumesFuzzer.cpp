#include <algorithm>
#include <string>
#include <vector>

#include "archive/Reader.h"
#include "fuzz/Require.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace {

using pellumar::archive::ByteView;
using pellumar::archive::Error;
using pellumar::archive::Reader;
using pellumar::archive::Result;
using pellumar::fuzz::require;

// Of more than that nothing is unpacked.
constexpr std::uint64_t kMostUnpacked = 1UL << 20U;

std::string volumeName(std::size_t index, std::size_t count, bool numbered) {
    const std::string number = std::to_string(index + 1);
    if (!numbered) {
        return "a.zip.00" + number;
    }
    return index + 1 == count ? "a.zip" : "a.z0" + number;
}

// What can be told of an archive without a folder to put it into.
std::string tell(const Result<Reader>& archive) {
    if (!archive) {
        return "refused";
    }
    std::string told;
    for (const pellumar::archive::Entry& entry : *archive) {
        told += std::string(entry.path) + '\n';
    }
    const auto faults = archive->test({.limits = {.bytes = kMostUnpacked, .threads = 1}});
    if (!faults) {
        return told + "over the limits";
    }
    for (const Error& fault : *faults) {
        told += fault.describe() + '\n';
    }
    return told;
}

}  // namespace

// Cuts any bytes into volumes and opens them by one of these. The first byte chooses how many and
// which way, the second by which, the next two where they are cut. Volumes that count as one piece
// are what the piece is, unless the one that was named is an archive by itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) {
        return 0;
    }
    const bool numbered = data[0] % 2 == 1;
    const std::size_t count = 2 + data[0] / 2 % 2;
    const ByteView bytes(data + 4, size - 4);
    std::vector<std::size_t> cuts{0, bytes.size() * data[2] / 256, bytes.size() * data[3] / 256};
    cuts.resize(count);
    cuts.push_back(bytes.size());
    std::sort(cuts.begin(), cuts.end());

    const pellumar::test::TemporaryFolder folder;
    for (std::size_t i = 0; i < count; ++i) {
        const ByteView volume = bytes.subspan(cuts[i], cuts[i + 1] - cuts[i]);
        pellumar::test::writeFile(folder / volumeName(i, count, numbered), volume);
    }
    const std::size_t named = data[1] % count;
    const std::string told = tell(Reader::open(folder / volumeName(named, count, numbered)));
    const ByteView byItself = bytes.subspan(cuts[named], cuts[named + 1] - cuts[named]);
    require(numbered || told == tell(Reader::openMemory(bytes)) ||
                told == tell(Reader::openMemory(byItself)),
            "what is cut apart is what is in one piece");
    return 0;
}
