#pragma once

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/WithinMemory.h"
#include "archive/reading/EntryReader.h"

namespace pellumar::archive {

// What one entry may cost of what the limits allow so many threads.
[[nodiscard]] EntryLimits limitsOfEntries(const ExtractionLimits& limits, std::size_t threads);

// The threads that read an archive's entries, each with a reader of its own, which it keeps from
// one run to the next. Belongs to the thread that made it, which is the first of them.
class ReaderThreads {
  public:
    // As many as the limits allow. Both live longer than this.
    ReaderThreads(const ByteSource& source, const ExtractionOptions& options);

    [[nodiscard]] std::size_t count() const { return readers_.size(); }

    // That of a thread, made when it is first asked for.
    [[nodiscard]] Result<EntryReader*> readerOf(std::size_t thread);

    // Calls `work` with a reader on no more than `most` threads, this one among them, and returns
    // when it has on all. An error if one of them had no reader or ran out of memory.
    template <typename Work>
    [[nodiscard]] Result<> run(std::size_t most, const Work& work) {
        Result<> outcome;
        std::mutex mutex;
        const auto runOne = [&](std::size_t thread) {
            Result<> worked = withinMemory([&]() -> Result<> {
                auto reader = readerOf(thread);
                if (!reader) {
                    return passOn(reader);
                }
                work(**reader);
                return {};
            });
            if (!worked) {
                const std::lock_guard lock(mutex);
                outcome = std::move(worked);
            }
        };
        const std::size_t threads = std::min(count(), most);
        std::vector<std::thread> helpers;
        helpers.reserve(threads);
        for (std::size_t i = 1; i < threads; ++i) {
            try {
                helpers.emplace_back(runOne, i);
            } catch (const std::exception&) {
                // No thread, or no memory for one: fewer threads take longer, no more.
                break;
            }
        }
        runOne(0);
        for (std::thread& helper : helpers) {
            helper.join();
        }
        return outcome;
    }

  private:
    const ByteSource& source_;
    const ExtractionOptions& options_;
    std::vector<std::unique_ptr<EntryReader>> readers_;
};

}  // namespace pellumar::archive
