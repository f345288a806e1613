#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <zlib.h>

#include <memory>

#include "archive/Samples.h"
#include "archive/writing/CompressibilityProbe.h"
#include "archive/writing/DeflateCompressor.h"

// What the compressor's chunks cost, beside the levels it could use; "ratio" is the share of the
// size that is left.
namespace pellumar::bench {
namespace {

using archive::ByteView;

constexpr std::size_t kSize = archive::DeflateCompressor::kChunkSize;

template <typename Function>
void measure(benchmark::State& state, SampleKind kind, Function compress) {
    const auto content = makeSample(kind, kSize);
    std::size_t compressedSize = 0;
    for ([[maybe_unused]] auto _ : state) {
        compressedSize = compress(ByteView(content));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kSize));
    state.counters["ratio"] = static_cast<double>(compressedSize) / static_cast<double>(kSize);
}

void measureChunk(benchmark::State& state, bool last) {
    archive::DeflateCompressor compressor;
    std::vector<std::uint8_t> output(archive::DeflateCompressor::kMostOutput);
    measure(state, static_cast<SampleKind>(state.range(0)), [&](ByteView content) {
        return compressor.compress(content, last, output);
    });
}

void BM_CompressChunk(benchmark::State& state) {
    measureChunk(state, true);
}

// In the middle of an entry the chunk's end is moved to a byte boundary as well.
void BM_CompressChunkOpenEnded(benchmark::State& state) {
    measureChunk(state, false);
}

void BM_Probe(benchmark::State& state) {
    archive::CompressibilityProbe probe;
    measure(state, static_cast<SampleKind>(state.range(0)), [&probe](ByteView content) {
        constexpr std::size_t kPiece = archive::CompressibilityProbe::kProbedPiece;
        std::size_t expected = 0;
        probe.restart();
        for (std::size_t offset = 0; offset < content.size(); offset += kPiece) {
            expected += probe.isWorthwhile(content.subspan(offset, kPiece)) ? 0 : kPiece;
        }
        return expected;
    });
}

void BM_LibdeflateLevel(benchmark::State& state) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(static_cast<int>(state.range(1))), &libdeflate_free_compressor);
    std::vector<std::uint8_t> output(libdeflate_deflate_compress_bound(compressor.get(), kSize));
    measure(state, static_cast<SampleKind>(state.range(0)), [&](ByteView content) {
        return libdeflate_deflate_compress(
            compressor.get(), content.data(), content.size(), output.data(), output.size());
    });
}

void BM_Zlib(benchmark::State& state) {
    measure(state, static_cast<SampleKind>(state.range(0)), [](ByteView content) {
        return deflateByZlib(content).size();
    });
}

constexpr auto kText = static_cast<std::int64_t>(SampleKind::kText);
constexpr auto kRecords = static_cast<std::int64_t>(SampleKind::kRecords);
constexpr auto kNoise = static_cast<std::int64_t>(SampleKind::kNoise);

BENCHMARK(BM_CompressChunk)->Arg(kText)->Arg(kRecords)->Arg(kNoise);
BENCHMARK(BM_CompressChunkOpenEnded)->Arg(kText)->Arg(kRecords)->Arg(kNoise);
BENCHMARK(BM_Probe)->Arg(kText)->Arg(kRecords)->Arg(kNoise);
BENCHMARK(BM_LibdeflateLevel)->ArgsProduct({{kText, kRecords}, {1, 4, 5, 6, 7, 9}});
BENCHMARK(BM_Zlib)->Arg(kText)->Arg(kRecords)->Arg(kNoise);

}  // namespace
}  // namespace pellumar::bench
