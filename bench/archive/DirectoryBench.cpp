#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "archive/base/File.h"
#include "archive/format/CentralDirectoryHeader.h"
#include "archive/format/EntryRecord.h"
#include "archive/format/ZipFormat.h"

// What an archive of many entries costs before the first byte of their data.
namespace pellumar::bench {
namespace {

using archive::ByteView;

archive::format::EntryRecord recordOf(std::size_t number, std::uint64_t offset) {
    archive::format::EntryRecord record;
    record.name = "folder-" + std::to_string(number % 100) + "/file-" + std::to_string(number);
    record.method = archive::format::kMethodStored;
    record.unixMode = 0100644;
    record.modified.tv_sec = 1'700'000'000;
    record.localHeaderOffset = offset;
    return record;
}

void BM_ParseCentralDirectoryHeader(benchmark::State& state) {
    std::vector<std::uint8_t> bytes;
    appendCentralDirectoryHeader(bytes, recordOf(1, 0));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(archive::format::CentralDirectoryHeader::parse(bytes, 0));
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_AppendCentralDirectoryHeader(benchmark::State& state) {
    const archive::format::EntryRecord record = recordOf(1, 0);
    std::vector<std::uint8_t> bytes;
    for ([[maybe_unused]] auto _ : state) {
        bytes.clear();
        appendCentralDirectoryHeader(bytes, record);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetItemsProcessed(state.iterations());
}

// An archive of so many empty files, 65,535 at most.
std::vector<std::uint8_t> makeArchive(std::size_t entries) {
    namespace format = archive::format;
    std::vector<std::uint8_t> archive;
    std::vector<std::uint8_t> directory;
    for (std::size_t number = 0; number < entries; ++number) {
        const format::EntryRecord record = recordOf(number, archive.size());
        appendLocalFileHeader(archive, record);
        appendCentralDirectoryHeader(directory, record);
    }
    const std::size_t directoryOffset = archive.size();
    archive.insert(archive.end(), directory.begin(), directory.end());
    const std::size_t end = archive.size();
    archive.resize(end + format::kEndOfCentralDirectorySize);
    archive::storeLittleEndian(archive, end, format::kEndOfCentralDirectorySignature);
    archive::storeLittleEndian(archive, end + 8, static_cast<std::uint16_t>(entries));
    archive::storeLittleEndian(archive, end + 10, static_cast<std::uint16_t>(entries));
    archive::storeLittleEndian(archive, end + 12, static_cast<std::uint32_t>(directory.size()));
    archive::storeLittleEndian(archive, end + 16, static_cast<std::uint32_t>(directoryOffset));
    return archive;
}

void BM_OpenArchive(benchmark::State& state) {
    std::string path = "/tmp/pellumar-bench-XXXXXX";
    archive::File file(::mkstemp(path.data()));
    const std::vector<std::uint8_t> bytes = makeArchive(static_cast<std::size_t>(state.range(0)));
    if (!file.isOpen() || !file.write(bytes) || !file.close()) {
        state.SkipWithError("no archive could be made");
    }
    for ([[maybe_unused]] auto _ : state) {
        if (!archive::Reader::open(path)) {
            state.SkipWithError("opening failed");
        }
    }
    ::unlink(path.c_str());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(BM_ParseCentralDirectoryHeader);
BENCHMARK(BM_AppendCentralDirectoryHeader);
BENCHMARK(BM_OpenArchive)->Arg(10)->Arg(1000)->Arg(60'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace pellumar::bench
