#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "archive/base/Entry.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/SourceFile.h"

// Whether the queue between the writer and its threads would hold up more cores than this machine
// has: the codec is a rest of that length, which takes none of them. "busy" is how many threads
// rested at a time on average; without a bound in the queue it is nearly the number of threads.

namespace pellumar::archive {
namespace {

constexpr std::chrono::milliseconds kCodec{2};
constexpr std::size_t kChunk = 4096;
constexpr std::size_t kChunks = 128;
constexpr std::size_t kAheadOfThreads = 6;  // as the writer has it

using Bytes = std::vector<std::uint8_t>;

// So many files of as many chunks.
std::vector<CompressionQueue::Source> sourcesOf(std::size_t files) {
    const auto content = std::make_shared<const Bytes>(kChunks / files * kChunk);
    std::vector<CompressionQueue::Source> sources;
    for (std::size_t i = 0; i < files; ++i) {
        CompressionQueue::Source source(std::to_string(i), {});
        source.memory = content;
        sources.push_back(source);
    }
    return sources;
}

void work(CompressionQueue& queue) {
    while (auto task = queue.takeTask()) {
        const bool isOpen =
            task->file != nullptr ||
            queue.reportOpened(
                *task, SourceFile::ofMemory(task->source->memoryType, task->source->memory));
        if (isOpen) {
            std::this_thread::sleep_for(kCodec);
            CompressedChunk chunk;
            chunk.small.resize(kChunk / 2);
            chunk.size = chunk.small.size();
            chunk.last = (task->chunk + 1) * kChunk >= task->file->size();
            queue.reportChunk(*task, std::move(chunk));
        }
    }
}

void writeAll(CompressionQueue& queue, const std::vector<CompressionQueue::Source>& sources) {
    queue.announce(sources);
    for (const CompressionQueue::Source& source : sources) {
        const auto opened = queue.begin(source);
        for (std::uint64_t left = opened ? opened->chunks : 0; left > 0; --left) {
            benchmark::DoNotOptimize(queue.takeChunk());
        }
        queue.end();
    }
}

// Arguments: threads, files.
void BM_QueueWithRestingCodec(benchmark::State& state) {
    const auto threads = static_cast<std::size_t>(state.range(0));
    const auto sources = sourcesOf(static_cast<std::size_t>(state.range(1)));
    for ([[maybe_unused]] auto _ : state) {
        CompressionQueue queue(kChunk, kChunk, kChunk * (threads + kAheadOfThreads));
        std::vector<std::thread> workers;
        for (std::size_t i = 0; i < threads; ++i) {
            workers.emplace_back([&queue] { work(queue); });
        }
        writeAll(queue, sources);
        queue.stop();
        for (std::thread& worker : workers) {
            worker.join();
        }
    }
    state.counters["busy"] = benchmark::Counter(
        static_cast<double>(kChunks * static_cast<std::size_t>(state.iterations())) *
            std::chrono::duration<double>(kCodec).count(),
        benchmark::Counter::kIsRate);
}

BENCHMARK(BM_QueueWithRestingCodec)
    ->ArgsProduct({{1, 2, 4, 8, 16}, {1, static_cast<long>(kChunks)}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pellumar::archive
