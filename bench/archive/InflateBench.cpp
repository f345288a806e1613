#include <benchmark/benchmark.h>
#include <zlib.h>

#include "archive/Samples.h"
#include "archive/codecs/Deflate64Decoder.h"
#include "archive/codecs/InflateDecoder.h"
#include "archive/codecs/OneShotInflater.h"

// The ways to inflate, each for an entry of some size: a small file, and one that is streamed.
namespace pellumar::bench {
namespace {

constexpr std::size_t kWindow = 256UL * 1024;
constexpr std::int64_t kSmall = 16L * 1024;
constexpr std::int64_t kLarge = 4L * 1024 * 1024;

struct Stream {
    explicit Stream(const benchmark::State& state)
        : size(static_cast<std::size_t>(state.range(0))),
          compressed(deflateByZlib(makeSample(static_cast<SampleKind>(state.range(1)), size))) {}

    std::size_t size;
    std::vector<std::uint8_t> compressed;
};

void report(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_InflateOneShot(benchmark::State& state) {
    const Stream stream(state);
    auto inflater = archive::OneShotInflater::create();
    std::vector<std::uint8_t> output(stream.size);
    for ([[maybe_unused]] auto _ : state) {
        if (!inflater || !inflater->inflate(stream.compressed, output)) {
            state.SkipWithError("inflating failed");
        }
    }
    report(state);
}

template <typename Decoder>
void measureStreaming(benchmark::State& state, Decoder& decoder) {
    const Stream stream(state);
    std::vector<std::uint8_t> output(kWindow);
    for ([[maybe_unused]] auto _ : state) {
        bool good = decoder.reset().has_value();
        archive::ByteView input(stream.compressed);
        for (bool finished = false; good && !finished;) {
            const auto step = decoder.decode(input, output);
            good = step.has_value();
            if (good) {
                input = input.subspan(step->consumed);
                finished = step->finished;
            }
        }
        if (!good) {
            state.SkipWithError("inflating failed");
        }
    }
    report(state);
}

void BM_InflateStreaming(benchmark::State& state) {
    archive::InflateDecoder decoder;
    measureStreaming(state, decoder);
}

void BM_InflatePlain(benchmark::State& state) {
    archive::Deflate64Decoder decoder(archive::DeflateVariant::kDeflate);
    measureStreaming(state, decoder);
}

void BM_InflateZlib(benchmark::State& state) {
    const Stream stream(state);
    std::vector<std::uint8_t> output(kWindow);
    z_stream inflater{};
    if (inflateInit2(&inflater, -MAX_WBITS) != Z_OK) {
        state.SkipWithError("no memory");
    }
    for ([[maybe_unused]] auto _ : state) {
        inflateReset(&inflater);
        inflater.next_in = stream.compressed.data();
        inflater.avail_in = static_cast<uInt>(stream.compressed.size());
        int outcome = Z_OK;
        while (outcome == Z_OK) {
            inflater.next_out = output.data();
            inflater.avail_out = static_cast<uInt>(output.size());
            outcome = inflate(&inflater, Z_NO_FLUSH);
        }
        if (outcome != Z_STREAM_END) {
            state.SkipWithError("inflating failed");
        }
    }
    inflateEnd(&inflater);
    report(state);
}

void chooseStreams(benchmark::internal::Benchmark* bench) {
    for (const auto kind : {SampleKind::kText, SampleKind::kRecords, SampleKind::kNoise}) {
        bench->Args({kSmall, static_cast<std::int64_t>(kind)});
        bench->Args({kLarge, static_cast<std::int64_t>(kind)});
    }
}

BENCHMARK(BM_InflateOneShot)->Apply(chooseStreams);
BENCHMARK(BM_InflateStreaming)->Apply(chooseStreams);
BENCHMARK(BM_InflatePlain)->Apply(chooseStreams);
BENCHMARK(BM_InflateZlib)->Apply(chooseStreams);

}  // namespace
}  // namespace pellumar::bench
