#include <benchmark/benchmark.h>
#include <zlib.h>

#include "archive/Samples.h"
#include "archive/base/Crc32.h"

namespace pellumar::bench {
namespace {

template <typename Function>
void measure(benchmark::State& state, Function checksum) {
    const auto content = makeSample(SampleKind::kNoise, static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(checksum(content));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Crc32(benchmark::State& state) {
    measure(state, [](archive::ByteView bytes) {
        return archive::crc32(archive::kCrc32OfNothing, bytes);
    });
}

void BM_Crc32Plain(benchmark::State& state) {
    measure(state, [](archive::ByteView bytes) {
        return archive::crc32Plain(archive::kCrc32OfNothing, bytes);
    });
}

void BM_Crc32Zlib(benchmark::State& state) {
    measure(state, [](archive::ByteView bytes) {
        return ::crc32(0, bytes.data(), static_cast<uInt>(bytes.size()));
    });
}

void BM_Crc32Combine(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(archive::crc32Combine(
            0x12345678, 0x9ABCDEF0, static_cast<std::uint64_t>(state.range(0))));
    }
}

BENCHMARK(BM_Crc32)->RangeMultiplier(16)->Range(64, 1 << 20);
BENCHMARK(BM_Crc32Plain)->Arg(1 << 20);
BENCHMARK(BM_Crc32Zlib)->Arg(1 << 20);
BENCHMARK(BM_Crc32Combine)->Arg(1 << 20)->Arg(1LL << 40);

}  // namespace
}  // namespace pellumar::bench
