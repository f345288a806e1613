#include "archive/reading/ReaderThreads.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kMostThreads = 8;
// What a thread takes for its buffers, and for the windows that it need not share.
constexpr std::uint64_t kBuffers = 2048UL * 1024;
constexpr std::uint64_t kWindow = 8UL * 1024 * 1024;

std::size_t threadsFor(const ExtractionLimits& limits) {
    const unsigned wanted = limits.threads != 0
                                ? limits.threads
                                : std::min(std::thread::hardware_concurrency(), kMostThreads);
    const std::uint64_t most = std::max<std::uint64_t>(limits.memory / (kBuffers + kWindow), 1);
    return static_cast<std::size_t>(std::clamp<std::uint64_t>(wanted, 1, most));
}

}  // namespace

EntryLimits limitsOfEntries(const ExtractionLimits& limits, std::size_t threads) {
    const std::uint64_t others = threads * kBuffers + (threads - 1) * kWindow;
    return {.windowMemory = limits.memory == ExtractionLimits::kNone
                                ? limits.memory
                                : limits.memory - std::min(limits.memory, others),
            .bytes = limits.bytes,
            .ratio = limits.ratio};
}

ReaderThreads::ReaderThreads(const ByteSource& source, const ExtractionOptions& options)
    : source_(source), options_(options), readers_(threadsFor(options.limits)) {}

Result<EntryReader*> ReaderThreads::readerOf(std::size_t thread) {
    std::unique_ptr<EntryReader>& reader = readers_[thread];
    if (!reader) {
        auto made = EntryReader::create(
            source_, options_.password, limitsOfEntries(options_.limits, count()));
        if (!made) {
            return passOn(made);
        }
        reader = std::move(*made);
    }
    return reader.get();
}

}  // namespace pellumar::archive
