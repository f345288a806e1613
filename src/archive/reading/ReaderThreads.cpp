#include "archive/reading/ReaderThreads.h"

namespace pellumar::archive {

namespace {

constexpr unsigned kMostThreads = 8;
// What a thread takes with the usual methods.
constexpr std::uint64_t kThreadMemory = 1536UL * 1024;

std::size_t threadsFor(const ExtractionLimits& limits) {
    const unsigned wanted = limits.threads != 0
                                ? limits.threads
                                : std::min(std::thread::hardware_concurrency(), kMostThreads);
    return static_cast<std::size_t>(std::clamp<std::uint64_t>(
        wanted, 1, std::max<std::uint64_t>(1, limits.memory / kThreadMemory)));
}

}  // namespace

ReaderThreads::ReaderThreads(const ByteSource& source, const ExtractionOptions& options)
    : source_(source), options_(options), readers_(threadsFor(options.limits)) {}

Result<EntryReader*> ReaderThreads::readerOf(std::size_t thread) {
    std::unique_ptr<EntryReader>& reader = readers_[thread];
    if (!reader) {
        auto made = EntryReader::create(source_, options_.password);
        if (!made) {
            return passOn(made);
        }
        reader = std::move(*made);
    }
    return reader.get();
}

}  // namespace pellumar::archive
